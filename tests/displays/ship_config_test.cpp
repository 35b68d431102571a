#include "displays/ship_config.h"

#include "support/test_support.h"

namespace {

class ShipConfigTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    // Markers lie 10 right and 50 down on screen: the engine at (225, 520), hardpoint 1 in its reach at (235, 520).
    TempDir dir;
    ASSERT_TRUE(readShipFile(ship, dir.write("Ship.txt",
                                             "NoSuchShip\nTest Hull\n1\n1\n3\n215,470\n100,100\n100,300\n"
                                             "225,470\n400,400\n300,200\nA plain hull.\n")));
    ship.engine.description = ship.shield.description = ship.powerPlant.description = "Stock part.";
    std::strcpy(ship.hardPoints[2].weaponName, "PulseLaser");
    ship.hardPoints[2].weapon.description = "Pew.";
    ship.hardPoints[2].weapon.energyOutput = 35;
    initShipConfig(&fontTable);
    loadLargeShipImage(&ship);  // missing: the window draws without it
    shipConfig.selectedComponent = ShipSelected;
    gameState.configOpen = 1;
    SDL_FillRect(screen, nullptr, 0);
  }
  Ship ship;
};

// The title in its own font whatever was current; " X " closes once its release is drawn; other releases select.
TEST_F(ShipConfigTest, SelectedMarkerIsLedToThePanelAndAReleaseSelectsTheFirstComponentInReach) {
  ship.hardPoints[9].markers = std::exchange(ship.hardPoints[1].markers, {});  // the last hardpoint's square
  shipConfig.selectedComponent = EngineSelected;
  setCurrentFont(fontTable.fonts[0]);
  drawShipConfig(screen);
  // The ring filled in blue at alpha 144; the leader runs from its centre to (525, 60), then on to the panel.
  const Uint32 fill = pixelRGB(screen, 225 + 6, 520 + 6);
  EXPECT_TRUE(fill >> 16 == 0 && (fill & 0xFF) > 0x70) << fill;
  for (auto [x, y] : {std::pair{224, 520}, {375, 290}, {450, 175}, {526, 60}, {549, 60}})
    EXPECT_EQ(pixelRGB(screen, x, y), 0xFF4040u) << x << "," << y;
  const Uint32 square = pixelRGB(screen, 410 + 10, 450);  // a hardpoint not selected: a plain square at alpha 144
  EXPECT_TRUE((square & 0xFF) > 0x80 && (square & 0xFF) < 0xFF && pixelRGB(screen, 410, 450) == 0) << square;
  EXPECT_TRUE(showsText(screen, 10, 10, fontTable.fonts[16], "Ship Configuration"));
  EXPECT_EQ(currentFont(), fontTable.fonts[2]);
  EXPECT_TRUE(markersHit(MarkerList{{0, 0}, {215, 470}}, 235, 520));  // 10 from a later point is in reach
  const int cases[][3] = {{230, 520, EngineSelected},                 // both in reach: the engine wins
                          {244, 520, firstHardPoint},     {110, 150, ShieldSelected},
                          {110, 350, PowerPlantSelected}, {410, 450, firstHardPoint + 9},
                          {310, 250, firstHardPoint + 2}, {600, 300, ShipSelected},
                          {775, 20, ShipSelected}};
  for (const auto& c : cases) {
    shipConfig.selectedComponent = EngineSelected;
    drawShipConfig(screen);
    EXPECT_EQ(gameState.configOpen, 1);
    shipConfigMouseMotion(c[0], c[1]);
    shipConfigMouseDown();
    shipConfigMouseUp();
    EXPECT_EQ(shipConfig.selectedComponent, c[2]) << c[0] << "," << c[1];
  }
  drawShipConfig(screen);
  EXPECT_EQ(gameState.configOpen, 0);
  std::strcpy(ship.shipClass, "Surveyor");  // the schematic, drawn at (10, 50)
  loadLargeShipImage(&ship);
  drawShipConfig(screen);
  EXPECT_NE(pixelRGB(screen, 20, 300), 0u);
}

// Hardpoints counted from one; only a hardpoint has a third row, so its description starts lower.
TEST_F(ShipConfigTest, PanelTitleNamesTheSelectionTheRowsFollowAndTheDescriptionWraps) {
  ship.engine.engineClass = 7;
  std::strcpy(ship.engine.name, "Kestrel");
  const std::tuple<int, const char*, const char*, const char*, const char*, const char*> cases[] = {
      {ShipSelected, "Ship", "Class: ", "NoSuchShip", "Type: ", "Test Hull"},
      {EngineSelected, "Engine", "Name: ", "Kestrel", "Class: ", "7"},
      {ShieldSelected, "Shields", "Name: ", "", "Class: ", "0"},
      {PowerPlantSelected, "Power Plant", "Name: ", "", "Class: ", "0"},
      {firstHardPoint + 2, "HardPoint 3", "Name: ", "PulseLaser", "Type: ", ""},
      {firstHardPoint + 10, "Ship", "Class: ", "NoSuchShip", "Type: ", "Test Hull"}};
  BitmapFont *titleFont = fontTable.fonts[10], *text = fontTable.fonts[2];
  for (const auto& [selected, title, label, value, label2, value2] : cases) {
    shipConfig.selectedComponent = selected;
    SDL_FillRect(screen, nullptr, 0);
    drawComponentInfo(screen);
    EXPECT_TRUE(showsText(screen, 672 - textWidth(titleFont, title) / 2, 51, titleFont, title, 1000, false, 18));
    EXPECT_EQ(pixelRGB(screen, 550, 50) & pixelRGB(screen, 790, 70), 0xFF4040u) << title;
    for (auto [y, l, v] : {std::tuple{80, label, value}, {100, label2, value2}}) {
      EXPECT_TRUE(showsText(screen, 550, y, text, l)) << title;
      EXPECT_TRUE(!*v || showsText(screen, 550 + textWidth(text, l), y, fontTable.fonts[6], v)) << title;
    }
    EXPECT_GT(litPixels(screen, 550, 120, 790, 134), 0) << title;
    EXPECT_EQ(litPixels(screen, 550, 140, 790, 154) > 0, selected == firstHardPoint + 2) << title;
    EXPECT_TRUE(selected != firstHardPoint + 2 ||
                showsText(screen, 550 + textWidth(text, "Energy Output: "), 120, fontTable.fonts[6], "35"));
  }
  // The description breaks before the word that would pass the width.
  const int fits = textWidth(text, "aaa ") + textWidth(text, "bbb");
  const std::tuple<std::string, int, int> wraps[] = {
      {"aaa bbb", fits, 1},
      {"aaa bbb", fits - 1, 2},
      {"  aaa \t\n bbb  ", fits, 1},       // runs of blanks count as one
      {std::string(300, 'w'), 100000, 4},  // pieces of 118 after an empty line
      {std::string(60, 'w'), textWidth(text, std::string(20, 'w').c_str()), 4}};
  for (const auto& [words, width, lines] : wraps)
    EXPECT_EQ(wrapText(screen, words.c_str(), width, 550, 120), lines) << words.substr(0, 20);
}

}  // namespace
