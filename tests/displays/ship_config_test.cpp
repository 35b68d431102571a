// The ship configuration window: marker reach, selection order, closing,
// the info panel and the word wrapping, read back from the screen.
#include "displays/ship_config.h"

#include <climits>
#include <random>

#include "ship/cargo.h"
#include "support/test_support.h"

namespace {

// Marker points on the large image; on screen they lie 10 right and 50 down.
constexpr MarkerPoint engineAt{215, 470};     // screen (225, 520)
constexpr MarkerPoint hardPointAt{225, 470};  // screen (235, 520), in reach of the engine's too

class ShipConfigTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    ship = Ship{};
    std::strcpy(ship.shipClass, "NoSuchShip");
    std::strcpy(ship.shipType, "Test Hull");
    ship.description = "A plain hull.";
    ship.engine.description = ship.shield.description = ship.powerPlant.description = "Stock part.";
    ship.engineMarkers = {engineAt};
    ship.shieldMarkers = {{100, 100}};
    ship.powerPlantMarkers = {{100, 300}};
    ship.hardPointCount = 3;
    ship.hardPoints[0].markers = {hardPointAt};
    ship.hardPoints[1].markers = {{400, 400}};
    ship.hardPoints[2].markers = {{300, 200}};
    std::strcpy(ship.hardPoints[2].weaponName, "PulseLaser");
    ship.hardPoints[2].weapon.description = "Pew.";
    ship.hardPoints[2].weapon.energyOutput = 35;
    initShipConfig(&fontTable);
    loadLargeShipImage(&ship);  // missing: the window draws without it
    shipConfig.selectedComponent = ShipSelected;
    gameState.configOpen = 1;
    SDL_FillRect(screen, nullptr, 0);
  }
  void releaseAt(int x, int y) {
    shipConfigMouseMotion(x, y);
    shipConfigMouseDown();
    shipConfigMouseUp();
  }
  Ship ship;
};

TEST(ShipConfigMarkers, ReachIsATruncatedDistanceBelowEleven) {
  shipConfig.imageX = 10;
  shipConfig.imageY = 50;
  const MarkerList engine{engineAt};
  // sqrt(113) = 10.6 counts as 10; sqrt(128) = 11.3 as 11.
  const struct {
    int dx, dy;
    bool hit;
  } cases[] = {{0, 0, true}, {10, 0, true}, {11, 0, false}, {-10, 0, true}, {0, -11, false},
               {7, 8, true}, {8, 8, false}, {-7, -8, true}, {8, -7, true},  {6, 9, true}};
  for (const auto& c : cases) EXPECT_EQ(markersHit(engine, 225 + c.dx, 520 + c.dy), c.hit) << c.dx << "," << c.dy;
  EXPECT_FALSE(markersHit(MarkerList{}, 10, 50));
  // A later point of the list counts as well as the first.
  EXPECT_TRUE(markersHit(MarkerList{{0, 0}, engineAt}, 225, 520));
  // Near the int limits: the marker at (far - 5 + 10, 0 + 50) is about 2^32 from the
  // pointer, which 32-bit sums would wrap to a distance of 0.
  const int far = INT_MAX, low = INT_MIN;
  EXPECT_FALSE(markersHit(MarkerList{{far - 5, 0}}, low + 4, 50));
  EXPECT_TRUE(markersHit(MarkerList{{far - 10, far - 50}}, far, far));
  EXPECT_FALSE(markersHit(MarkerList{{low, low}, {far, low}}, 799, 599));
}

// The window stays open until a release on " X " has been drawn; that release
// selects the ship.
TEST_F(ShipConfigTest, ReleaseSelectsTheFirstComponentHitElseTheShip) {
  const struct {
    int x, y;
    int selected;
  } cases[] = {{230, 520, EngineSelected},  // both in reach: the engine wins
               {244, 520, firstHardPoint},  // the hardpoint alone
               {110, 150, ShieldSelected},     {110, 350, PowerPlantSelected}, {410, 450, firstHardPoint + 1},
               {310, 250, firstHardPoint + 2}, {600, 300, ShipSelected},       {775, 20, ShipSelected}};
  for (const auto& c : cases) {
    shipConfig.selectedComponent = EngineSelected;
    drawShipConfig(screen);
    EXPECT_EQ(gameState.configOpen, 1);
    releaseAt(c.x, c.y);
    EXPECT_EQ(shipConfig.selectedComponent, c.selected) << c.x << "," << c.y;
  }
  drawShipConfig(screen);
  EXPECT_EQ(gameState.configOpen, 0);
}

// The title names the selection, hardpoints counted from one; the first row's label in the
// text font and its value in the value font. Only a hardpoint has a third row, so its text starts lower.
TEST_F(ShipConfigTest, PanelTitleNamesTheSelectionAndTheRowsFollow) {
  ship.engine.engineClass = 7;
  std::strcpy(ship.engine.name, "Kestrel");
  const struct {
    int selected;
    const char *title, *label, *value;
  } cases[] = {{ShipSelected, "Ship", "Class: ", "NoSuchShip"},
               {EngineSelected, "Engine", "Name: ", "Kestrel"},
               {ShieldSelected, "Shields", "Name: ", ""},
               {PowerPlantSelected, "Power Plant", "Name: ", ""},
               {firstHardPoint + 2, "HardPoint 3", "Name: ", "PulseLaser"},
               {firstHardPoint + 9, "HardPoint 10", "Name: ", ""},
               {firstHardPoint + 10, "Ship", "Class: ", "NoSuchShip"}};
  BitmapFont* titleFont = fontTable.fonts[10];
  for (const auto& c : cases) {
    shipConfig.selectedComponent = c.selected;
    SDL_FillRect(screen, nullptr, 0);
    drawComponentInfo(screen);
    EXPECT_TRUE(showsText(screen, 672 - textWidth(titleFont, c.title) / 2, 51, titleFont, c.title, 1000, false, 18))
        << c.title;
    EXPECT_EQ(pixelRGB(screen, 550, 50) & pixelRGB(screen, 790, 70), 0xFF4040u) << c.title;
    EXPECT_TRUE(showsText(screen, 550, 80, fontTable.fonts[2], c.label)) << c.title;
    EXPECT_TRUE(!*c.value ||
                showsText(screen, 550 + textWidth(fontTable.fonts[2], c.label), 80, fontTable.fonts[6], c.value))
        << c.title;
    EXPECT_GT(litPixels(screen, 550, 120, 790, 134), 0) << c.title;
    EXPECT_EQ(litPixels(screen, 550, 140, 790, 154) > 0, c.selected == firstHardPoint + 2) << c.title;
  }
  shipConfig.selectedComponent = firstHardPoint + 2;
  SDL_FillRect(screen, nullptr, 0);
  drawComponentInfo(screen);
  EXPECT_TRUE(showsText(screen, 550 + textWidth(fontTable.fonts[2], "Energy Output: "), 120, fontTable.fonts[6], "35"));
  shipConfig.selectedComponent = EngineSelected;
  SDL_FillRect(screen, nullptr, 0);
  drawComponentInfo(screen);
  EXPECT_TRUE(showsText(screen, 550, 100, fontTable.fonts[2], "Class: "));
  EXPECT_TRUE(showsText(screen, 550 + textWidth(fontTable.fonts[2], "Class: "), 100, fontTable.fonts[6], "7"));
}

// The selected ring filled and led to the panel, the others plain; the window's
// title in its own font whatever font was current before.
TEST_F(ShipConfigTest, SelectedMarkerIsFilledAndLedToThePanelUnderTheTitle) {
  shipConfig.selectedComponent = EngineSelected;
  setCurrentFont(fontTable.fonts[0]);
  drawShipConfig(screen);
  // Blue at alpha 144 over black, the leader's end dot covering only the centre.
  const Uint32 fill = pixelRGB(screen, 225 + 6, 520 + 6);
  EXPECT_TRUE(fill >> 16 == 0 && (fill & 0xFF) > 0x70) << fill;
  EXPECT_EQ(pixelRGB(screen, 224, 520), 0xFF4040u);  // the leader's dot, left of hardpoint 0's squares
  // The leader runs from the marker to (525, 60), then on to the panel at 550.
  for (auto [x, y] : {std::pair{375, 290}, {450, 175}, {526, 60}, {549, 60}})
    EXPECT_EQ(pixelRGB(screen, x, y), 0xFF4040u) << x << "," << y;
  // A hardpoint not selected: squares, not filled, at alpha 144.
  const Uint32 square = pixelRGB(screen, 410 + 10, 450);
  EXPECT_TRUE((square & 0xFF) > 0x80 && (square & 0xFF) < 0xFF) << square;
  EXPECT_EQ(pixelRGB(screen, 410, 450), 0u);
  EXPECT_TRUE(showsText(screen, 10, 10, fontTable.fonts[16], "Ship Configuration"));
  EXPECT_EQ(currentFont(), fontTable.fonts[2]);
}

TEST_F(ShipConfigTest, WrappingBreaksBeforeTheWordThatWouldPassTheWidth) {
  setCurrentFont(fontTable.fonts[2]);
  const int fits = textWidth(fontTable.fonts[2], "aaa ") + textWidth(fontTable.fonts[2], "bbb");
  const int twentyW = textWidth(fontTable.fonts[2], std::string(20, 'w').c_str());
  const int lineHeight = fontTable.heights[7];
  const struct {
    std::string text;
    int width;
    int lines;
  } cases[] = {{"aaa bbb", fits, 1},
               {"aaa bbb", fits - 1, 2},
               {"  aaa \t\n bbb  ", fits, 1},  // runs of blanks count as one
               {"", 240, 1},
               {std::string(60, 'w'), twentyW, 4},                 // wider than the line: an empty line first
               {std::string(300, 'w'), 100000, 4},                 // pieces of 118 after the empty line
               {"a " + std::string(118, 'w') + " b", 100000, 3}};  // the 119-character line is full
  for (const auto& c : cases) {
    SDL_FillRect(screen, nullptr, 0);
    EXPECT_EQ(wrapText(screen, c.text.c_str(), c.width, 550, 120), c.lines) << c.text.substr(0, 20);
    if (c.text.size() == 60) {  // the unbroken word stands on the second line; the first is empty
      EXPECT_EQ(litPixels(screen, 550, 120, 800, 120 + lineHeight), 0);
      EXPECT_GT(litPixels(screen, 550, 120 + lineHeight, 800, 120 + 2 * lineHeight), 0);
    }
  }
}

// Whatever the words and the width, no line passes the width and every character is drawn.
TEST_F(ShipConfigTest, WrappedLinesStayWithinTheWidthAndLoseNoCharacter) {
  const int h = fontHeight(fontTable.fonts[2]);
  std::mt19937 random(6);
  for (int round = 0; round < 25; ++round) {
    const int width = 60 + static_cast<int>(random() % 200);
    std::string text, letters;  // the words, and their letters alone
    while (letters.size() < 40) {
      const std::size_t length = 1 + random() % (random() % 4 ? 8 : 40);  // now and then wider than a line
      for (std::size_t k = 0; k < length; ++k) letters += static_cast<char>('a' + random() % 26);
      text += letters.substr(letters.size() - length) + (random() % 5 ? " " : "\n");
    }
    SurfacePtr unwrapped = blankSurface(800, h);
    printString(unwrapped.get(), fontTable.fonts[2], 0, 0, "%s", letters.c_str());
    SDL_FillRect(screen, nullptr, 0);
    const int bottom = std::min((wrapText(screen, text.c_str(), width, 0, 0) - 1) * fontTable.heights[7] + h, 600);
    EXPECT_EQ(std::pair(litPixels(screen, width, 0, 800, bottom), litPixels(screen, 0, 0, width, bottom)),
              std::pair(0, litPixels(unwrapped.get(), 0, 0, 800, h)))
        << width << ": " << text;
  }
}

TEST(ShipConfigDescription, LongTextIsCutToTheWorkingBufferAtAWordBoundary) {
  std::string words = "x";
  while (words.size() < 20000) words += "ore ";
  const struct {
    std::string text;
    std::size_t size;
  } cases[] = {{"short", 5},
               {std::string(9999, 'x'), 9999},
               {std::string(10000, 'x'), 9999},         // one word: cut where the buffer ends
               {std::string(9998, 'x') + " yy", 9999},  // the cut leaves a lone blank at the end
               {words, 9997}};                          // the last whole "ore " ends at 9997; the split one goes
  for (const auto& c : cases) {
    const std::string cut = descriptionForPanel(c.text);
    EXPECT_EQ(cut.size(), c.size) << c.text.size();
    EXPECT_EQ(c.text.compare(0, cut.size(), cut), 0) << "a prefix of the text";
  }
}

TEST_F(ShipConfigTest, AHugeDescriptionIsDrawnWithoutOverrunningAnything) {
  std::string huge;
  while (huge.size() < 30000) huge += std::string(150, 'q') + " ";
  ship.description = huge;
  LogWatch log;
  drawShipConfig(screen);
  drawShipConfig(screen);
  EXPECT_TRUE(log.saw("Description cut to 9999 bytes"));
  EXPECT_EQ(log.lines().size(), 1u) << "logged once, not every frame";
}

TEST_F(ShipConfigTest, LoadingTheLargeImageLogsItsPath) {
  LogWatch log;
  std::strcpy(ship.shipClass, "Surveyor");
  loadLargeShipImage(&ship);
  EXPECT_TRUE(log.saw("Loading large ship image: .\\Ships\\Surveyor_large.bmp"));
  ASSERT_NE(shipConfig.largeImage, nullptr);
  drawShipConfig(screen);
  EXPECT_NE(pixelRGB(screen, 20, 300), 0u) << "the schematic at (10, 50)";
  std::strcpy(ship.shipClass, "Nothing");
  loadLargeShipImage(&ship);
  EXPECT_TRUE(log.saw("Large ship image missing: .\\Ships\\Nothing_large.bmp"));
}

}  // namespace
