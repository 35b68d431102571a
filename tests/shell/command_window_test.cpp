#include "support/test_support.h"

namespace {

class CommandWindowTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    playerShip.shieldsOnline = playerShip.weaponsOnline = 0;
  }

  // What the input handlers do: hover on motion, toggle on press, act on release.
  static void moveTo(int row) { commandWindowHover(600, 270 + 30 * row, screen); }
  static void clickRow(int row) {
    moveTo(row);
    toggleItemSelected();
    performMenuAction();
  }
  // Menu m with nothing selected and the mouse off the rows.
  static void showMenu(int menu) {
    initCommandWindow(&fontTable);
    commandWindowHover(400, 300, screen);
    setCurrentMenu(menu);
  }
  static std::vector<int> window() {
    return {getCurrentMenu(), getCurrentItem(), isItemSelected(), playerShip.shieldsOnline, playerShip.weaponsOnline};
  }
};

}  // namespace

TEST_F(CommandWindowTest, ClicksSelectOnlyRowsTheMenuHasAndThePointedItemIsBright) {
  clickRow(1);
  EXPECT_EQ(window(), (std::vector<int>{3, 0, 0, 0, 0}));
  clickRow(1);
  EXPECT_TRUE(isActive(3, 0));
  moveTo(2);  // the selection moves with the mouse
  EXPECT_TRUE(isActive(3, 2));
  moveTo(5);  // past the menu's five rows: no selection mark there
  EXPECT_EQ(pixelRGB(screen, 525, 420), 0u);

  showMenu(10);  // a press below a short menu or between rows does not toggle
  clickRow(5);
  EXPECT_EQ(window(), (std::vector<int>{10, 5, 0, 0, 0}));
  commandWindowHover(600, 285, screen);
  toggleItemSelected();
  EXPECT_EQ(isItemSelected(), 0);
  setCurrentMenu(12);
  setCurrentMenu(-1);
  EXPECT_EQ(getCurrentMenu(), 10) << "menus that do not exist are refused";
  showMenu(EngineeringMenu);  // Configuration opens and closes its window; Bridge leaves it be
  clickRow(ConfigurationItem);
  EXPECT_EQ(gameState.configOpen, 1);
  clickRow(EngineeringBridgeItem);
  EXPECT_EQ(std::pair(getCurrentMenu(), gameState.configOpen), std::pair(0, 1));

  // The item under the pointer is bright, the others grey, and the text font is left current.
  showMenu(0);
  moveTo(2);
  setCurrentFont(fontTable.fonts[0]);
  SDL_FillRect(screen, nullptr, 0);
  drawCommandWindow(screen);
  const char* items[] = {"Captain", "Science", "Navigator", "Tactical", "Engineering", "Communication"};
  for (int row = 0; row < 6; ++row)
    EXPECT_TRUE(showsText(screen, 545, 262 + 30 * row, fontTable.fonts[row == 2 ? 13 : 14], items[row], 1000, true))
        << items[row];
  EXPECT_EQ(currentFont(), fontTable.fonts[2]);
}

// Tactical opens the menu of the shields and weapons; its first two items flip one and move to the new one's menu.
TEST_F(CommandWindowTest, TacticalMenusFollowTheShieldsAndWeapons) {
  const struct {
    int menu, item, shields, weapons;
    std::vector<int> after;
  } cases[] = {{0, 3, 0, 0, {5, 0, 0, 0, 0}}, {0, 3, 1, 0, {6, 0, 0, 1, 0}}, {0, 3, 0, 1, {7, 0, 0, 0, 1}},
               {0, 3, 1, 1, {8, 0, 0, 1, 1}}, {5, 0, 0, 0, {6, 0, 0, 1, 0}}, {5, 1, 0, 0, {7, 1, 0, 0, 1}},
               {6, 0, 1, 0, {5, 0, 0, 0, 0}}, {6, 1, 1, 0, {8, 1, 0, 1, 1}}, {7, 0, 0, 1, {8, 0, 0, 1, 1}},
               {7, 1, 0, 1, {5, 1, 0, 0, 0}}, {8, 0, 1, 1, {7, 0, 0, 0, 1}}, {8, 1, 1, 1, {6, 1, 0, 1, 0}}};
  for (const auto& c : cases) {
    showMenu(c.menu);
    playerShip.shieldsOnline = c.shields;
    playerShip.weaponsOnline = c.weapons;
    clickRow(c.item);
    EXPECT_EQ(window(), c.after) << c.menu << "," << c.item << " " << c.shields << c.weapons;
  }
}
