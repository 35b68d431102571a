#include "displays/status_window.h"

#include <sstream>

#include "support/test_support.h"

namespace {

constexpr Uint32 red = 0xFF0000, green = 0x00FF00, yellow = 0xFFFF00, white = 0xFFFFFF, magenta = 0xFF00FF;
constexpr int panelX = 515, panelY = 5;

BitmapFont* entry(int i) { return fontTable.fonts[i]; }

class StatusWindowTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    std::strcpy(ship.shipName, "Lark");
    std::strcpy(ship.shipClass, "Scout");
    std::strcpy(ship.shipType, "Probe");
    ship.engine.engineClass = 3, ship.engine.warpCurrent = 2, ship.shield.shieldClass = 4, ship.armorClass = 5;
    // Fifty million holds of 50 CU: 2,500,000,000 is past the int range.
    ship.fuel = 321, ship.cargoHoldCount = 50000000, ship.shipHoldFree = 150.0f, ship.hardPointCount = 2;
    initStatusWindow(shipImages, &fontTable, &ship);
  }
  static Uint32 panel(int x, int y) { return pixelRGB(screen, panelX + x, panelY + y); }
  // The last x of a bar's full-strength centre row, from its start at 50.
  static int barEnd(int y, Uint32 colour) {
    int x = 50;
    while (x < 279 && (panel(x + 1, y) == colour || panel(x + 1, y) == white)) ++x;
    return x;
  }
  Ship ship;
};

// The gauge labels are closer than a font height and the scale crosses them and its own labels. Bars run from 50 to
// 50 + 100 x the fraction; the shield's moves 10 a drawing toward the charge.
TEST_F(StatusWindowTest, TextRowsAndGaugesShowTheShip) {
  const int h = fontTable.heights[2];
  BitmapFont* text = entry(2);
  ship.shieldsOnline = 1;
  SurfacePtr shipImage = blankSurface(4, 4);
  SDL_FillRect(shipImage.get(), nullptr, magenta);
  SDL_Surface* saved = std::exchange(shipImages[0], shipImage.get());
  drawStatusWindow(screen);
  shipImages[0] = saved;
  std::istringstream lines(
      "Ship Class   : Scout|Ship Type    : Probe|Engine Class : 3|Shield Class : 4|Armor Class  : 5|"
      "Fuel Remain  : 321|Cargo Holds  : 2499999850.00 / 2500000000|HardPoints   : 2|Warp Speed   : 2 / 3|"
      "Shield Status:|Weapon Status:");
  int y = 20;
  for (std::string line; std::getline(lines, line, '|'); y += h)
    EXPECT_TRUE(showsText(screen, panelX, panelY + y, text, line, 270)) << line;
  EXPECT_TRUE(showsText(screen, panelX + 140 - textWidth(entry(11), "Lark") / 2, panelY, entry(11), "Lark"));
  EXPECT_TRUE(showsText(screen, panelX + 105, panelY + 20 + 9 * h, entry(5), "ONLINE"));
  EXPECT_TRUE(showsText(screen, panelX + 105, panelY + 20 + 10 * h, entry(4), "OFFLINE"));
  for (auto [y, label] : {std::pair{220, "Hull Integraty"}, {205, "Armor Strength"}, {190, "Shield Strength"}})
    EXPECT_TRUE(showsText(screen, panelX + 279 - textWidth(text, label), panelY + y, text, label, 1000, true, 15));
  EXPECT_EQ(currentFont(), text) << "the panel leaves the ordinary text font current";
  EXPECT_EQ(panel(200, 60) & panel(203, 63), magenta) << "ship image";
  for (int x : {50, 75, 100, 125, 150})  // the scale lines run from 190 to 235
    EXPECT_TRUE(panel(x, 190) == white && panel(x, 235) == white && panel(x, 189) != white) << x;
  // Hull, armour and shield against their maximums; the texts; the bars' ends. No maximum: nothing to fill.
  const std::tuple<std::array<int, 6>, std::array<const char*, 3>, std::vector<int>> cases[] = {
      {{50, 200, 7, 50, 0, 100}, {"050/200", "007/050", "000/100"}, {75, 64, 50}},
      {{0, 0, 3, 0, 0, 0}, {"000/000", "003/000", "000/000"}, {50, 50, 50}},
      {{999, 100, 1234, 10, 0, 100}, {"999/100", "1234/010", "000/100"}, {279, 279, 50}}};
  for (const auto& [v, texts, ends] : cases) {
    ship.hullCurrent = v[0], ship.hullMax = v[1], ship.armorCurrent = v[2], ship.armorMax = v[3];
    ship.shield.shieldCurrent = shieldDisplay = v[4], ship.shield.shieldMax = v[5];
    drawStatusWindow(screen);
    // The value texts reach the bars' glow at x 45; compare what is left of them.
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(showsText(screen, panelX, panelY + 220 - 15 * i, entry(2), texts[i], 44));
    EXPECT_EQ((std::vector{barEnd(225, red), barEnd(210, yellow), barEnd(195, green)}), ends);
  }
  // From, charge, then the values shown on the drawings after.
  const std::vector<int> follows[] = {{0, 35, 10, 20, 30, 35, 35}, {50, 0, 40, 30, 20, 10, 0}, {-5, 4, 4}};
  ship.shield.shieldMax = 100;
  for (const auto& f : follows) {
    shieldDisplay = f[0];
    ship.shield.shieldCurrent = f[1];
    for (std::size_t i = 2; i < f.size(); ++i) {
      drawStatusWindow(screen);
      EXPECT_EQ(std::pair(shieldDisplay, barEnd(195, green)), std::pair(f[i], 50 + f[i])) << f[0];
    }
  }
}

// Starting again builds the globes and resets the turn, shield display and sweep; a missing image is skipped.
TEST_F(StatusWindowTest, GlobeImagesAreBuiltAndTurnThroughTheTwentyAndSkipMissingOnes) {
  shieldDisplay = 70, globeFrame = 12;
  setScanProgress(44);
  LogWatch log;
  initStatusWindow(shipImages, &fontTable, &ship);
  EXPECT_TRUE(log.saw("Initializing Status Window"));
  EXPECT_EQ(std::tuple(shieldDisplay, scanProgress(), globeFrame), std::tuple(0, 0, 0));
  EXPECT_EQ(std::count(globeImages, globeImages + globeImageCount, nullptr), 0);
  // Their wire grid: a meridian every 20 degrees, a parallel every 15.
  EXPECT_EQ(std::count(std::begin(wireGrid.cells), std::end(wireGrid.cells), 255), 18 * 180 + 12 * 360 - 18 * 12);
  SDL_Surface* saved = std::exchange(globeImages[7], nullptr);
  std::string turns;  // the next turn, and whether an image was drawn
  for (int from : {0, 7, 19, 20, -3}) {
    globeFrame = from;
    SDL_FillRect(screen, nullptr, 0);
    drawGlobeFrame(screen);
    turns += std::to_string(globeFrame) + (litPixels(screen, 595, 120, 800, 300) ? "o " : "- ");
  }
  EXPECT_EQ(turns, "1o 8- 0o 1o 1o ");
  globeImages[7] = saved;
}

// The sweep's leading line, then the readings at the end of the 30th drawing; an odd count still ends it.
TEST_F(StatusWindowTest, AScanSweepsTheGlobeAndEndsWithTheReadings) {
  SDL_FillRect(screen, nullptr, 0);
  setScanProgress(20);
  drawPlanetScan(screen, 0, nullptr);
  EXPECT_EQ(std::tuple(pixelRGB(screen, 610, 180), pixelRGB(screen, 625, 180), pixelRGB(screen, 626, 180)),
            std::tuple(0u, 0x8080FFu, 0u));
  Planet planet;
  planet.Mass = 1.22f, planet.MassExponent = 23, planet.Gravity = 0.98f;
  planet.MinTemp = -20, planet.MaxTemp = 40, planet.MineralDensity = 55;
  setScanProgress(0);
  for (int call = 1; call < 30; ++call) drawPlanetScan(screen, 6, &planet);
  EXPECT_EQ(scanProgress(), 116);
  SDL_FillRect(screen, nullptr, 0);
  drawPlanetLabels(screen);
  drawPlanetScan(screen, 6, &planet);
  EXPECT_EQ(scanProgress(), 0);
  const char* labels[] = {"Orbital Lane:", "Mass:", "Gravity:", "Temperature:", "Mineral Density:"};
  const char* readings[] = {"6", "1.22 x 10", "0.98g", "-20c to 40c", "55"};
  for (int i = 0, y = 15; i < 5; ++i, y += 20) {
    const std::string label = labels[i];
    EXPECT_TRUE(showsText(screen, 520, y, entry(2), label)) << label;
    EXPECT_TRUE(showsText(screen, 520 + textWidth(entry(4), (label + " ").c_str()), y, entry(4), readings[i]));
  }
  EXPECT_TRUE(showsText(screen, 522 + textWidth(entry(4), "Mass: 1.22 x 10"), 33, entry(1), "23"));
  setScanProgress(118);  // an odd count still ends its sweep
  drawPlanetScan(screen, 6, nullptr);
  EXPECT_EQ(scanProgress(), 0);
}

}  // namespace
