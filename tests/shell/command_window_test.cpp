#include "shell/command_window.h"

#include <SDL_gfxPrimitives.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "shell/debug_log.h"
#include "shell/game_state.h"
#include "shell/main_loop.h"
#include "shell/message_window.h"
#include "ship/ship.h"
#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

class LogWatch {
 public:
  bool saw(const char* text) const {
    for (int i = start_; i != debugLog.writeIndex; i = (i + 1) % logLineCount) {
      if (std::strcmp(debugLog.lines[i], text) == 0) return true;
    }
    return false;
  }

 private:
  int start_ = debugLog.writeIndex;
};

// The middle of row r of the command pane.
constexpr int paneX = 600;
int rowY(int r) { return 260 + 30 * r + 10; }

class CommandWindowTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    playerShip.shieldsOnline = 0;
    playerShip.weaponsOnline = 0;
  }
  void TearDown() override {
    playerShip.shieldsOnline = 0;
    playerShip.weaponsOnline = 0;
  }

  // What the input handlers do: a hover on every motion, a toggle on the
  // press and the action on the release.
  static void moveTo(int row) { commandWindowHover(paneX, rowY(row), screen); }
  static void click() {
    toggleItemSelected();
    performMenuAction();
  }
  static void clickRow(int row) {
    moveTo(row);
    click();
  }
  // Opens menu m with nothing selected, as a switch from the bridge leaves it,
  // with the mouse off the rows so that the next move onto a row is seen.
  static void showMenu(int menu) {
    commandWindowHover(400, 300, screen);
    setCurrentMenu(menu);
    setCurrentItem(0);
  }
};

}  // namespace

TEST_F(CommandWindowTest, StartsOnTheBridgeWithNothingSelected) {
  LogWatch log;
  setCurrentMenu(4);
  setCurrentItem(2);
  toggleItemSelected();
  initCommandWindow(&fontTable);
  EXPECT_TRUE(log.saw("Initializing Command Window"));
  EXPECT_EQ(getCurrentMenu(), 0);
  EXPECT_EQ(getCurrentItem(), 0);
  EXPECT_EQ(isItemSelected(), 0);
}

TEST_F(CommandWindowTest, HoverFindsTheRowOnlyWhenTheRowChanges) {
  commandWindowHover(paneX, 261, screen);
  EXPECT_EQ(getCurrentItem(), 0);
  commandWindowHover(paneX, 279, screen);
  EXPECT_EQ(getCurrentItem(), 0);
  commandWindowHover(paneX, 280, screen);  // between rows 0 and 1
  EXPECT_EQ(getCurrentItem(), 6);
  commandWindowHover(paneX, 291, screen);
  EXPECT_EQ(getCurrentItem(), 1);
  commandWindowHover(paneX, rowY(5), screen);
  EXPECT_EQ(getCurrentItem(), 5);
  commandWindowHover(515, rowY(2), screen);  // the pane starts right of x 515
  EXPECT_EQ(getCurrentItem(), 6);
  // Staying in a row leaves a current item set by other means alone.
  commandWindowHover(paneX, rowY(3), screen);
  setCurrentItem(0);
  commandWindowHover(paneX + 50, rowY(3) + 5, screen);
  EXPECT_EQ(getCurrentItem(), 0);
}

TEST_F(CommandWindowTest, ScienceThenASecondClickWithoutMovingSelectsSensors) {
  clickRow(1);
  EXPECT_EQ(getCurrentMenu(), 3);
  EXPECT_EQ(getCurrentItem(), 0);
  EXPECT_EQ(isItemSelected(), 0);
  moveTo(1);  // the mouse has not left row 1
  click();
  EXPECT_TRUE(isActive(3, 0)) << "Sensors stays selected for the sweep";
  // Moving onto another row carries the selection with it.
  moveTo(2);
  EXPECT_TRUE(isActive(3, 2));
  click();
  EXPECT_EQ(isItemSelected(), 0) << "a second click deselects Culture";
}

TEST_F(CommandWindowTest, APressBelowAShortMenuDoesNotToggle) {
  showMenu(10);
  moveTo(5);
  EXPECT_EQ(getCurrentItem(), 5);
  toggleItemSelected();
  EXPECT_EQ(isItemSelected(), 0);
  commandWindowHover(paneX, 285, screen);  // no row at all
  toggleItemSelected();
  EXPECT_EQ(isItemSelected(), 0);
  performMenuAction();
  EXPECT_EQ(getCurrentMenu(), 10);
}

TEST_F(CommandWindowTest, BridgeOpensEachStation) {
  const struct {
    int item, mode, menu;
  } cases[] = {{0, Space, 1}, {0, Orbit, 1}, {0, Surface, 2}, {1, Space, 3},
               {2, Space, 4}, {4, Space, 9}, {5, Space, 10}};
  for (const auto& c : cases) {
    initCommandWindow(&fontTable);
    gameState.mode = c.mode;
    clickRow(c.item);
    EXPECT_EQ(getCurrentMenu(), c.menu) << c.item;
    EXPECT_EQ(getCurrentItem(), 0) << c.item;
    EXPECT_EQ(isItemSelected(), 0) << c.item;
  }
}

TEST_F(CommandWindowTest, TacticalOpensTheMenuOfTheShieldsAndWeapons) {
  const struct {
    int shields, weapons, menu;
    const char* logged;
  } cases[] = {{0, 0, 5, "menu 5"}, {1, 0, 6, nullptr}, {0, 1, 7, nullptr}, {1, 1, 8, "menu 8"}};
  for (const auto& c : cases) {
    initCommandWindow(&fontTable);
    playerShip.shieldsOnline = c.shields;
    playerShip.weaponsOnline = c.weapons;
    LogWatch log;
    clickRow(3);
    EXPECT_EQ(getCurrentMenu(), c.menu);
    EXPECT_EQ(getCurrentItem(), 0);
    EXPECT_EQ(isItemSelected(), 0);
    EXPECT_EQ(log.saw("menu 5"), c.logged && std::strcmp(c.logged, "menu 5") == 0) << c.menu;
    EXPECT_EQ(log.saw("menu 8"), c.logged && std::strcmp(c.logged, "menu 8") == 0) << c.menu;
  }
}

TEST_F(CommandWindowTest, ShieldsAndWeaponsSwitchBetweenTheTacticalMenus) {
  const struct {
    int menu, item, shieldsBefore, weaponsBefore, nextMenu, nextItem, shields, weapons;
  } cases[] = {
      {5, 0, 0, 0, 6, 0, 1, 0},  // Raise Shields
      {5, 1, 0, 0, 7, 1, 0, 1},  // Arm Weapons
      {6, 0, 1, 0, 5, 0, 0, 0},  // Lower Shields
      {6, 1, 1, 0, 8, 1, 1, 1},  // Arm Weapons
      {7, 0, 0, 1, 8, 0, 1, 1},  // Raise Shields
      {7, 1, 0, 1, 5, 1, 0, 0},  // Disarm Weapons
      {8, 0, 1, 1, 7, 0, 0, 1},  // Lower Shields
      {8, 1, 1, 1, 6, 1, 1, 0},  // Disarm Weapons
  };
  for (const auto& c : cases) {
    initCommandWindow(&fontTable);
    playerShip.shieldsOnline = c.shieldsBefore;
    playerShip.weaponsOnline = c.weaponsBefore;
    showMenu(c.menu);
    clickRow(c.item);
    const std::string label = std::to_string(c.menu) + "," + std::to_string(c.item);
    EXPECT_EQ(getCurrentMenu(), c.nextMenu) << label;
    EXPECT_EQ(getCurrentItem(), c.nextItem) << label;
    EXPECT_EQ(isItemSelected(), 0) << label;
    EXPECT_EQ(playerShip.shieldsOnline, c.shields) << label;
    EXPECT_EQ(playerShip.weaponsOnline, c.weapons) << label;
  }
  // From the new menu the label under the mouse says what the next click does.
  EXPECT_STREQ(menuItems[6][0], "Lower Shields");
  EXPECT_STREQ(menuItems[7][1], "Disarm Weapons");
}

TEST_F(CommandWindowTest, BridgeAndCancelLeadBack) {
  const struct {
    int menu, item, to;
  } cases[] = {{1, 4, 0}, {2, 4, 0}, {3, 4, 0}, {4, 3, 0},  {5, 3, 0},  {6, 3, 0},
               {7, 3, 0}, {8, 3, 0}, {9, 3, 0}, {10, 2, 0}, {11, 2, 1}, {1, 0, 11}};
  for (const auto& c : cases) {
    initCommandWindow(&fontTable);
    showMenu(c.menu);
    clickRow(c.item);
    EXPECT_EQ(getCurrentMenu(), c.to) << c.menu << "," << c.item;
    EXPECT_EQ(getCurrentItem(), 0) << c.menu << "," << c.item;
    EXPECT_EQ(isItemSelected(), 0) << c.menu << "," << c.item;
  }
}

TEST_F(CommandWindowTest, ItemsWithoutAnActionOnlyToggle) {
  const struct {
    int menu, item;
  } cases[] = {{1, 1}, {1, 3}, {2, 1}, {2, 3}, {3, 0},  {3, 1},  {3, 2}, {4, 2},
               {5, 2}, {6, 2}, {9, 0}, {9, 1}, {10, 0}, {10, 1}, {11, 0}};
  for (const auto& c : cases) {
    initCommandWindow(&fontTable);
    const GameState before = gameState;
    showMenu(c.menu);
    clickRow(c.item);
    EXPECT_TRUE(isActive(c.menu, c.item)) << c.menu << "," << c.item;
    clickRow(c.item);
    EXPECT_EQ(isItemSelected(), 0) << c.menu << "," << c.item;
    EXPECT_EQ(gameState.cargoOpen + gameState.navigationOpen + gameState.configOpen + gameState.maneuverOn +
                  gameState.showShipStatus + gameState.descentRunning + gameState.launchRunning,
              0);
    EXPECT_EQ(before.mode, gameState.mode);
  }
}

TEST_F(CommandWindowTest, WindowAndStatusTogglesClearTheirSelection) {
  // Cargo, from the captain's menus in orbit and on the surface.
  for (int menu : {1, 2}) {
    showMenu(menu);
    clickRow(2);
    EXPECT_EQ(gameState.cargoOpen, 1);
    EXPECT_EQ(isItemSelected(), 0);
    clickRow(2);
    EXPECT_EQ(gameState.cargoOpen, 0);
    EXPECT_EQ(isItemSelected(), 0);
  }
  showMenu(3);
  clickRow(3);
  EXPECT_EQ(gameState.showShipStatus, 1);
  clickRow(3);
  EXPECT_EQ(gameState.showShipStatus, 0);
  EXPECT_EQ(isItemSelected(), 0);

  showMenu(4);
  clickRow(1);
  EXPECT_EQ(gameState.navigationOpen, 1);
  EXPECT_EQ(isItemSelected(), 0);
  clickRow(1);
  EXPECT_EQ(gameState.navigationOpen, 0);

  showMenu(9);
  clickRow(2);
  EXPECT_EQ(gameState.configOpen, 1);
  EXPECT_EQ(isItemSelected(), 0);
  clickRow(2);
  EXPECT_EQ(gameState.configOpen, 0);
}

TEST_F(CommandWindowTest, ManeuverStaysSelectedWhileTheControlsAreEngaged) {
  showMenu(4);
  clickRow(0);
  EXPECT_EQ(gameState.maneuverOn, 1);
  EXPECT_TRUE(isActive(4, 0));
  clickRow(0);
  EXPECT_EQ(gameState.maneuverOn, 0);
  EXPECT_EQ(isItemSelected(), 0);
}

TEST_F(CommandWindowTest, DescentStartsFromOrbitOnly) {
  gameState.mode = Orbit;
  gameState.heading = 45;
  showMenu(11);
  clickRow(1);
  EXPECT_EQ(gameState.descentRunning, 1);
  EXPECT_EQ(gameState.heading, 0);
  EXPECT_TRUE(isActive(11, 1)) << "stays selected until the landing";

  for (int mode : {Space, System}) {
    initCommandWindow(&fontTable);
    gameState.descentRunning = 0;
    gameState.mode = mode;
    gameState.heading = 45;
    showMenu(11);
    clickRow(1);
    EXPECT_EQ(gameState.descentRunning, 0) << mode;
    EXPECT_EQ(gameState.heading, 45) << mode;
    EXPECT_EQ(isItemSelected(), 0) << mode;
    const int last = (messageWindow.writeIndex + logLineCount - 1) % logLineCount;
    EXPECT_STREQ(messageWindow.lines[last], "The rover can only be lowered from orbit");
  }
}

TEST_F(CommandWindowTest, LaunchStaysSelectedWhileItRuns) {
  gameState.mode = Surface;
  showMenu(2);
  clickRow(0);
  EXPECT_EQ(gameState.launchRunning, 1);
  EXPECT_TRUE(isActive(2, 0));
}

TEST_F(CommandWindowTest, AMenuThatDoesNotExistIsRefused) {
  setCurrentMenu(3);
  setCurrentMenu(12);
  setCurrentMenu(-1);
  EXPECT_EQ(getCurrentMenu(), 3);
}

namespace {

Uint8 brightness(Uint32 rgb) { return std::max({Uint8(rgb >> 16), Uint8(rgb >> 8), Uint8(rgb)}); }

// The brightest pixel of a rectangle of the screen.
Uint8 brightestIn(int x1, int y1, int x2, int y2) {
  Uint8 best = 0;
  for (int y = y1; y <= y2; ++y) {
    for (int x = x1; x <= x2; ++x) best = std::max(best, brightness(pixelRGB(screen, x, y)));
  }
  return best;
}

}  // namespace

TEST_F(CommandWindowTest, DrawsBulletsLabelsAndTheSelectionMarkInThePane) {
  boxRGBA(screen, 0, 0, 799, 599, 200, 0, 0, 255);
  showMenu(4);
  moveTo(1);
  toggleItemSelected();
  drawCommandWindow(screen);
  // The window covers the pane from (515, 260) for 280 x 245 pixels, on black.
  EXPECT_EQ(pixelRGB(screen, 514, 300), 0xC80000u);
  EXPECT_EQ(pixelRGB(screen, 515 + 279, 260 + 244), 0u);
  EXPECT_EQ(pixelRGB(screen, 515 + 280, 300), 0xC80000u);
  EXPECT_EQ(pixelRGB(screen, 600, 260 + 245), 0xC80000u);
  // Bullet corners: white for the current item, grey for the others, none past the menu's four items.
  EXPECT_EQ(pixelRGB(screen, 515 + 5, 260 + 35), 0xFFFFFFu);
  EXPECT_EQ(pixelRGB(screen, 515 + 5, 260 + 5), 0x808080u);
  EXPECT_EQ(pixelRGB(screen, 515 + 20, 260 + 110), 0x808080u);
  EXPECT_EQ(brightestIn(515, 260 + 120, 794, 504), 0);
  // The selection mark in the current bullet.
  EXPECT_EQ(pixelRGB(screen, 515 + 10, 260 + 40), 0xFFFFFFu);
  EXPECT_EQ(pixelRGB(screen, 515 + 10, 260 + 10), 0u);
  // Labels: the current one printed white, the others grey.
  EXPECT_GT(brightestIn(515 + 30, 260 + 32, 515 + 200, 260 + 50), 200);
  const Uint8 other = brightestIn(515 + 30, 260 + 2, 515 + 200, 260 + 20);
  EXPECT_GT(other, 60);
  EXPECT_LE(other, 128);

  // Deselected, the mark is gone.
  toggleItemSelected();
  drawCommandWindow(screen);
  EXPECT_EQ(pixelRGB(screen, 515 + 10, 260 + 40), 0u);
  EXPECT_EQ(currentFont(), fontTable.fonts[2]) << "the other windows' font is current again";
}
