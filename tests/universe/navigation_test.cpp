#include <SDL_gfxPrimitives.h>

#include "support/test_support.h"

namespace {

std::pair<int, int> target() { return {targetCell.column, targetCell.row}; }

// The window sits at (85, 5); its chart's cell (0, display row 0) at (196, 16).
constexpr int wx = 85, wy = 5;

class NavigationTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    initNavigationWindow(&fontTable);
    scanCell = ChartCell{};
    gameState.navigationOpen = 1;
  }
  int draw(int column, int row, int speed = 12) { return drawNavigationWindow(screen, starMap, column, row, speed); }
  // Whether the window shows `text` at (x, y) of the window in font entry `font`, over whatever is drawn there.
  // The column labels stand on the grid's bottom line (y 510), which is drawn over their top row.
  static bool shows(int x, int y, int font, const char* text) {
    return showsText(screen, wx + x, wy + y, fontTable.fonts[font], text, 1000, true, 1000, y == 510 ? 1 : 0);
  }
};

}  // namespace

TEST_F(NavigationTest, MouseAndArrowsMoveTheTargetOnlyWithinTheChart) {
  navigationMouseUp(694, 514);
  for (auto [x, y] : {std::pair{695, 100}, {300, 515}, {195, 100}, {300, 15}}) navigationMouseUp(x, y);
  EXPECT_EQ(target(), std::pair(498, 498)) << "clicks off the chart are ignored";
  navigationMouseMoved(400, 300), navigationMouseMoved(100, 300);
  EXPECT_EQ(std::pair(scanCell.column, scanCell.row), std::pair(204, 284));
  moveTargetUp(), moveTargetRight(), moveTargetRight();
  EXPECT_EQ(target(), std::pair(499, 497));
  targetCell = ChartCell{1, 498};
  moveTargetLeft(), moveTargetLeft(), moveTargetDown(), moveTargetDown();
  EXPECT_EQ(target(), std::pair(0, 499));
  targetCell.row = 0, moveTargetUp();
  EXPECT_EQ(target(), std::pair(0, 0));
}

// The ship's ring round (210, 409), one pixel up and left of its cell; the target's open
// crosshair of three-pixel arms round (211, 111), the arm below under the line from the ship.
TEST_F(NavigationTest, ShipRingAndTargetCrosshairSitOnTheirCells) {
  targetCell = ChartCell{100, 100};            // an empty cell straight above the ship
  for (int i = 0; i < 8; ++i) draw(100, 100);  // the marks pulse up from dark
  const auto at = [](int x, int y) { return pixelRGB(screen, wx + x, wy + y); };
  EXPECT_NE(at(208, 409), 0u);
  for (int d = 1; d <= 4; ++d) EXPECT_EQ(at(210 - d, 409), at(210 + d, 409)) << d;
  for (int d = 1; d <= 3; ++d)  // the left arm the same white as the one above
    EXPECT_TRUE(at(211 + d, 111) && at(211 - d, 111) && at(211 - d, 111) == at(211, 111 - d)) << d;
  EXPECT_FALSE(at(207, 111) || at(215, 111) || at(211, 107));
}

// Labels in the ordinary font, values in the value font, each in its place; the chart's
// scale every 50 cells with faint grid lines on its rows and columns.
TEST_F(NavigationTest, ReadoutsLabelsAndGridInTheirFontsAndPlaces) {
  PlacedObjects objects;
  objects.place(250, 250, "White Drawf", "Cold", 4);
  objects.place(0, 0, "G");
  objects.place(5, 7, "Z");          // an unknown class is not charted
  targetCell = ChartCell{103, 395};  // map row 104: 5 cells from (100, 100)
  navigationMouseMoved(196 + 250, 16 + 249);
  draw(100, 100, 12);
  const int h = fontTable.heights[2];
  const std::tuple<int, int, const char*> labels[] = {{10, 60, "Current"},         {10, 60 + h, "Position"},
                                                      {10, 140, "Distance"},       {10, 190, "Fuel"},
                                                      {10, 550, "( Scanning) X:"}, {10, 565, "(Targeting) X:"}};
  for (auto [x, y, text] : labels) EXPECT_TRUE(shows(x, y, 2, text)) << text;
  const std::tuple<int, int, const char*> values[] = {
      {10, 60 + 2 * h, "X:100"}, {10, 60 + 3 * h, "Y:100"}, {10, 140 + h, "5.00 SU"},  {10, 190 + h, "1.04 CU"},
      {107, 550, "250"},         {157, 550, "250"},         {300, 550, "White Drawf"}, {480, 550, "Cold"},
      {600, 550, "4"},           {107, 565, "103"},         {157, 565, "104"},         {300, 565, "---"}};
  for (auto [x, y, text] : values) EXPECT_TRUE(shows(x, y, 6, text)) << text;
  for (auto [x, y, text] : {std::tuple{90, 5, "500"}, {90, 55, "450"}, {150, 510, " 50"}, {600, 510, "500"}})
    EXPECT_TRUE(shows(x, y, 0, text)) << text;
  SurfacePtr faint = blankSurface(4, 4);  // white at alpha 64 over black, as SDL_gfx blends it
  vlineRGBA(faint.get(), 1, 0, 3, 255, 255, 255, 64);
  for (int i = 0; i < 10; i += 5) {
    const int line = 10 + 50 * i;  // between the crossings
    EXPECT_EQ(pixelRGB(screen, wx + 135, wy + line), pixelRGB(faint.get(), 1, 1)) << line;
    EXPECT_EQ(pixelRGB(screen, wx + 110 + 50 * i, wy + 35), pixelRGB(faint.get(), 1, 1)) << line;
    EXPECT_EQ(pixelRGB(screen, wx + 135, wy + line + 1) | pixelRGB(screen, wx + 111 + 50 * i, wy + 35), 0u) << line;
  }
  // Objects are pixels of their class's colour; the scanned one takes the square cursor.
  auto chart = [](int column, int row) { return pixelRGB(screen, wx + 111 + column, wy + 11 + 499 - row); };
  EXPECT_EQ(std::tuple(chart(0, 0), chart(250, 250), chart(5, 7)), std::tuple(0xFFFF00u, 0xFF64FFu, 0u));
  EXPECT_TRUE(navigationSquareCursorSelected());
  navigationMouseMoved(196 + 251, 16 + 249);  // an empty cell: dashes and the crosshair again
  draw(100, 100, 0);                          // no top speed: no fuel figure rather than a division by zero
  EXPECT_TRUE(!navigationSquareCursorSelected() && shows(300, 550, 6, "---") && shows(480, 550, 6, "---") &&
              shows(10, 190 + h, 6, "---") && !pixelRGB(screen, wx + 250, wy + 560));  // no grid past row 500
  navigationMouseMoved(wx + 45, wy + 25), navigationMouseDown();                       // the close button
  navigationMouseUp(wx + 45, wy + 25);
  EXPECT_EQ(draw(100, 100), 1);
  EXPECT_EQ(gameState.navigationOpen, 0);
}

TEST_F(NavigationTest, FadingLineRisesFromFiftyToFullAndStaysOnTheSurface) {
  SurfacePtr s = blankSurface(40, 40);
  fadingLine(s.get(), 10, 30, 30, 30, 255, 255, 255);  // 20 steps of 12 from 50: full at the 18th
  for (int i = 0; i <= 20; ++i)
    EXPECT_NEAR(int(pixelRGB(s.get(), 10 + i, 30) & 0xFF), std::min(255, 50 + 12 * i), 2) << i;
  fadingLine(s.get(), -500, -500, -400, -420, 255, 255, 255);  // off the surface: nothing written, no fault
  fadingLine(s.get(), 1000, 10, 1100, 10, 255, 255, 255);
}
