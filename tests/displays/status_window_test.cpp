#include "displays/status_window.h"

#include "support/test_support.h"

namespace {

constexpr Uint32 red = 0xFF0000, green = 0x00FF00, yellow = 0xFFFF00, white = 0xFFFFFF, magenta = 0xFF00FF;
constexpr int panelX = 515, panelY = 5;

BitmapFont* entry(int i) { return fontTable.fonts[i]; }

class StatusWindowTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    SDL_FillRect(screen, nullptr, 0);
    shipImage = blankSurface(4, 4);
    SDL_FillRect(shipImage.get(), nullptr, magenta);
    savedShipImage = std::exchange(shipImages[0], shipImage.get());
    std::snprintf(ship.shipName, sizeof ship.shipName, "Lark");
    std::snprintf(ship.shipClass, sizeof ship.shipClass, "Scout");
    std::snprintf(ship.shipType, sizeof ship.shipType, "Probe");
    ship.engine.engineClass = 3, ship.engine.warpCurrent = 2;
    ship.shield.shieldClass = 4, ship.shield.shieldMax = 100, ship.shield.shieldCurrent = 0;
    ship.armorClass = 5, ship.armorMax = 50, ship.armorCurrent = 7;
    ship.hullMax = 200, ship.hullCurrent = 50, ship.fuel = 321;
    ship.cargoHoldCount = 4, ship.shipHoldFree = 150.0f, ship.hardPointCount = 2;
    initStatusWindow(shipImages, &fontTable, &ship);
  }
  void TearDown() override { shipImages[0] = savedShipImage; }
  static Uint32 panel(int x, int y) { return pixelRGB(screen, panelX + x, panelY + y); }
  // The last x of a bar's full-strength centre row, from its start at 50.
  static int barEnd(int y, Uint32 colour) {
    int x = 50;
    while (x < 279 && (panel(x + 1, y) == colour || panel(x + 1, y) == white)) ++x;
    return x;
  }
  Ship ship;
  SurfacePtr shipImage;
  SDL_Surface* savedShipImage = nullptr;
};

// Every text row in its font and place, with shields up and weapons down and the other way round.
TEST_F(StatusWindowTest, TextRowsShowTheShip) {
  const int h = fontTable.heights[2];
  const auto right = [](const char* text) { return 279 - textWidth(entry(2), text); };
  for (int online = 0; online < 2; ++online) {
    ship.shieldsOnline = online;
    ship.weaponsOnline = 1 - online;
    drawStatusWindow(screen);
    // The gauge rows are closer than a font height and the scale crosses their texts.
    const struct {
      int x, y, font;
      std::string text;
      bool overlapped = false;
      int rows = 1000;
    } rows[] = {{140 - textWidth(entry(11), "Lark") / 2, 0, 11, "Lark"},
                {0, 20, 2, "Ship Class   : Scout"},
                {0, 20 + h, 2, "Ship Type    : Probe"},
                {0, 20 + 2 * h, 2, "Engine Class : 3"},
                {0, 20 + 3 * h, 2, "Shield Class : 4"},
                {0, 20 + 4 * h, 2, "Armor Class  : 5"},
                {0, 20 + 5 * h, 2, "Fuel Remain  : 321"},
                {0, 20 + 6 * h, 2, "Cargo Holds  : 50.00 / 200"},
                {0, 20 + 7 * h, 2, "HardPoints   : 2"},
                {0, 20 + 8 * h, 2, "Warp Speed   : 2 / 3"},
                {0, 20 + 9 * h, 2, "Shield Status:"},
                {105, 20 + 9 * h, online ? 5 : 4, online ? "ONLINE" : "OFFLINE"},
                {0, 20 + 10 * h, 2, "Weapon Status:"},
                {105, 20 + 10 * h, online ? 4 : 5, online ? "OFFLINE" : "ONLINE"},
                {right("Hull Integraty"), 220, 2, "Hull Integraty", true},
                {right("Armor Strength"), 205, 2, "Armor Strength", true, 15},
                {right("Shield Strength"), 190, 2, "Shield Strength", true, 15},
                {43, 235, 2, "0%", true, 10},
                {68, 235, 2, "25%", true, 10},
                {143, 235, 2, "100%", true, 10}};
    for (const auto& r : rows)
      EXPECT_TRUE(showsText(screen, panelX + r.x, panelY + r.y, entry(r.font), r.text, 1000, r.overlapped, r.rows))
          << r.text;
    EXPECT_EQ(currentFont(), entry(2)) << "the panel leaves the ordinary text font current";
  }
  EXPECT_EQ(panel(200, 60) & panel(203, 63), magenta) << "ship image";
  for (int x : {50, 75, 100, 125, 150})  // the scale lines run from 190 to 235
    EXPECT_TRUE(panel(x, 190) == white && panel(x, 235) == white && panel(x, 189) != white) << x;
}

// Gauge numbers take at least three digits; bars run from 50 to 50 + 100 x the fraction,
// the shield bar showing the value that moves 10 a drawing toward the charge.
TEST_F(StatusWindowTest, GaugesShowTheirValuesAndBars) {
  const struct {
    int hull, hullMax, armor, armorMax, shield, shieldMax;
    const char *hullText, *armorText, *shieldText;
    int hullEnd, armorEnd, shieldEnd;
  } cases[] = {{50, 200, 7, 50, 0, 100, "050/200", "007/050", "000/100", 75, 64, 50},
               {200, 200, 25, 50, 5, 40, "200/200", "025/050", "005/040", 150, 100, 62},
               {0, 0, 3, 0, 0, 0, "000/000", "003/000", "000/000", 50, 50, 50},  // no maximum: nothing to fill
               {999, 100, 1234, 10, 0, 100, "999/100", "1234/010", "000/100", 279, 279, 50}};
  for (const auto& c : cases) {
    ship.hullCurrent = c.hull, ship.hullMax = c.hullMax;
    ship.armorCurrent = c.armor, ship.armorMax = c.armorMax;
    ship.shield.shieldCurrent = shieldDisplay = c.shield, ship.shield.shieldMax = c.shieldMax;
    drawStatusWindow(screen);
    // The value texts reach the bars' glow at x 45; compare what is left of it.
    EXPECT_TRUE(showsText(screen, panelX, panelY + 220, entry(2), c.hullText, 44)) << c.hullText;
    EXPECT_TRUE(showsText(screen, panelX, panelY + 205, entry(2), c.armorText, 44)) << c.armorText;
    EXPECT_TRUE(showsText(screen, panelX, panelY + 190, entry(2), c.shieldText, 44)) << c.shieldText;
    EXPECT_EQ((std::vector{barEnd(225, red), barEnd(210, yellow), barEnd(195, green)}),
              (std::vector{c.hullEnd, c.armorEnd, c.shieldEnd}));
  }
  const struct {
    int from, charge;
    std::vector<int> shown;
  } follows[] = {{0, 35, {10, 20, 30, 35, 35}}, {100, 95, {95}}, {50, 0, {40, 30, 20, 10, 0}}, {-5, 4, {4}}};
  ship.shield.shieldMax = 100;
  for (const auto& f : follows) {
    shieldDisplay = f.from;
    ship.shield.shieldCurrent = f.charge;
    for (int expected : f.shown) {
      drawStatusWindow(screen);
      EXPECT_EQ(std::pair(shieldDisplay, barEnd(195, green)), std::pair(expected, 50 + expected)) << f.from;
    }
  }
}

// Starting again builds the wire globes and resets the globe's turn, the shield display and the sweep.
TEST_F(StatusWindowTest, GlobeImagesAreBuiltAndTurnThroughTheTwentyAndSkipMissingOnes) {
  SDL_Surface* saved[globeImageCount];
  for (int i = 0; i < globeImageCount; ++i) saved[i] = std::exchange(globeImages[i], nullptr);
  shieldDisplay = 70, globeFrame = 12;
  setScanProgress(44);
  LogWatch log;
  initStatusWindow(shipImages, &fontTable, &ship);
  EXPECT_TRUE(log.saw("Initializing Status Window"));
  EXPECT_EQ(std::tuple(shieldDisplay, scanProgress(), globeFrame), std::tuple(0, 0, 0));
  SurfacePtr images[globeImageCount];
  for (int i = 0; i < globeImageCount; ++i) {
    ASSERT_NE(globeImages[i], nullptr) << i;
    SDL_FreeSurface(globeImages[i]);
    images[i] = blankSurface(2, 2);
    SDL_FillRect(images[i].get(), nullptr, 0x010000u * (i + 1));
    globeImages[i] = i == 7 ? nullptr : images[i].get();
  }
  for (int call = 0; call < 2 * globeImageCount + 1; ++call) {
    SDL_FillRect(screen, nullptr, 0);
    drawGlobeFrame(screen);
    const int i = call % globeImageCount;
    EXPECT_EQ(pixelRGB(screen, 596, 121), i == 7 ? 0u : 0x010000u * (i + 1)) << "call " << call;
    EXPECT_EQ(pixelRGB(screen, 597, 122), 0u);
  }
  globeFrame = 25;  // out of range: starts over instead of reading past the images
  drawGlobeFrame(screen);
  EXPECT_EQ(globeFrame, 1);
  for (int i = 0; i < globeImageCount; ++i) globeImages[i] = saved[i];
}

// Fifteen lines trail the leading one, fainter and fainter, inside the globe's box; a sweep
// takes 30 drawings and the readings appear on the 30th, after their labels.
TEST_F(StatusWindowTest, SweepLinesTrailInsideTheGlobeAndEndWithTheReadings) {
  const struct {
    int progress, firstLit, lastLit;  // empty when first > last
  } cases[] = {{0, 601, 605}, {20, 611, 625}, {100, 691, 704}, {112, 703, 704}, {116, 1, 0}};
  for (const auto& c : cases) {
    SDL_FillRect(screen, nullptr, 0);
    setScanProgress(c.progress);
    drawPlanetScan(screen, 0, nullptr);
    for (int x = 598; x < 710; ++x) {
      const Uint32 got = pixelRGB(screen, x, 180);
      EXPECT_EQ(got != 0, x >= c.firstLit && x <= c.lastLit) << c.progress << ": " << x;
      if (x > c.firstLit && x <= c.lastLit) {
        EXPECT_GT(got & 0xFF, pixelRGB(screen, x - 1, 180) & 0xFF) << x;
      }
      EXPECT_EQ(pixelRGB(screen, x, 124) | pixelRGB(screen, x, 231), 0u) << x;
    }
  }
  Planet planet;
  planet.Mass = 1.22f, planet.MassExponent = 23, planet.Gravity = 0.98f;
  planet.MinTemp = -20, planet.MaxTemp = 40, planet.MineralDensity = 55;
  BitmapFont* value = entry(4);
  const auto after = [value](const char* label) { return 520 + textWidth(value, label); };
  const auto readingsShown = [&] {
    return showsText(screen, after("Orbital Lane: "), 15, value, "6") &&
           showsText(screen, after("Mass: "), 35, value, "1.22 x 10") &&
           showsText(screen, 2 + after("Mass: 1.22 x 10"), 33, entry(1), "23") &&
           showsText(screen, after("Gravity: "), 55, value, "0.98g") &&
           showsText(screen, after("Temperature: "), 75, value, "-20c to 40c") &&
           showsText(screen, after("Mineral Density: "), 95, value, "55");
  };
  setScanProgress(0);
  for (int call = 1; call <= 30; ++call) {
    SDL_FillRect(screen, nullptr, 0);
    drawPlanetScan(screen, 6, &planet);
    ASSERT_EQ(scanProgress(), call < 30 ? 4 * call : 0);
    ASSERT_EQ(readingsShown(), call == 30) << "call " << call;
  }
  setScanProgress(118);  // an odd count still ends its sweep
  drawPlanetScan(screen, 6, &planet);
  EXPECT_EQ(scanProgress(), 0);
  SDL_FillRect(screen, nullptr, 0);
  drawPlanetLabels(screen);
  const std::pair<int, const char*> labels[] = {
      {15, "Orbital Lane:"}, {35, "Mass:"}, {55, "Gravity:"}, {75, "Temperature:"}, {95, "Mineral Density:"}};
  for (auto [y, text] : labels) EXPECT_TRUE(showsText(screen, 520, y, entry(2), text)) << text;
}

}  // namespace

// Fifty million holds of 50 CU: 2,500,000,000 is past the int range.
TEST_F(StatusWindowTest, CargoCapacityPastTheIntRangeShowsWhole) {
  ship.cargoHoldCount = 50000000, ship.shipHoldFree = 0.0f;
  drawStatusWindow(screen);
  EXPECT_TRUE(showsText(screen, panelX, panelY + 20 + 6 * fontTable.heights[2], entry(2),
                        "Cargo Holds  : 2500000000.00 / 2500000000", 270));
}
