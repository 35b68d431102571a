#include "universe/navigation.h"

#include "base/game_state.h"
#include "base/screen.h"
#include "shell/main_loop.h"
#include "shell/mode_frames.h"
#include "shell/orbit.h"
#include "shell/screen_layout.h"
#include "shell/state_dump.h"
#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

// Whether the screen at (x, y) shows `text` as font entry `font` prints it on black.
static bool showsText(int x, int y, int font, const char* text) {
  const int w = textWidth(fontTable.fonts[font], text), h = fontTable.heights[font];
  SurfacePtr reference = blankSurface(w, h);
  putString(reference.get(), fontTable.fonts[font], 0, 0, text);
  for (int i = 0; i < w * h; ++i) {
    if (pixelRGB(screen, x + i % w, y + i / w) != pixelRGB(reference.get(), i % w, i / w)) return false;
  }
  return w > 0;
}

static std::pair<int, int> target() { return {targetCell.column, targetCell.row}; }

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
  static int h() { return fontTable.heights[2]; }
};

TEST_F(NavigationTest, MouseAndArrowsMoveTheTargetOnlyWithinTheChart) {
  navigationMouseUp(196, 16);
  EXPECT_EQ(target(), std::pair(0, 0));
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

TEST_F(NavigationTest, MarkersPulseUpAndDownByThirty) {
  std::vector<int> seen;
  for (int frame = 0; frame < 10; ++frame) seen.push_back(blinkAlpha), draw(450, 450);
  EXPECT_EQ(seen, (std::vector<int>{0, 30, 60, 90, 120, 150, 180, 210, 240, 210}));
}

TEST_F(NavigationTest, DistanceAndFuelReadouts) {
  targetCell = ChartCell{103, 395};  // map row 104
  draw(100, 100, 12);
  EXPECT_TRUE(showsText(wx + 10, wy + 140 + h(), 6, "5.00 SU"));
  EXPECT_TRUE(showsText(wx + 10, wy + 190 + h(), 6, "1.04 CU"));
  draw(100, 100, 0);  // no top speed: no fuel figure rather than a division by zero
  EXPECT_TRUE(showsText(wx + 10, wy + 190 + h(), 6, "---"));
}

TEST_F(NavigationTest, ObjectsAreClassColouredPixelsAndTheScanLineReadsThem) {
  PlacedObjects objects;
  objects.place(0, 0, "G");
  objects.place(250, 250, "White Drawf", "Cold", 4);
  objects.place(5, 7, "Z");  // an unknown class is not charted
  targetCell = ChartCell{450, 450};
  navigationMouseMoved(196 + 250, 16 + 249);
  draw(480, 480);
  auto chart = [](int column, int row) { return pixelRGB(screen, wx + 111 + column, wy + 11 + 499 - row); };
  EXPECT_EQ(std::tuple(chart(0, 0), chart(250, 250), chart(5, 7)), std::tuple(0xFFFF00u, 0xFF64FFu, 0u));
  EXPECT_TRUE(navigationSquareCursorSelected() && showsText(wx + 300, wy + 550, 6, "White Drawf"));
  navigationMouseMoved(196 + 251, 16 + 249);  // an empty cell: dashes and the crosshair again
  draw(480, 480);
  EXPECT_TRUE(!navigationSquareCursorSelected() && showsText(wx + 300, wy + 550, 6, "---"));
}

TEST_F(NavigationTest, CloseButtonClosesTheWindow) {
  navigationMouseMoved(wx + 45, wy + 25), navigationMouseDown();
  navigationMouseUp(wx + 45, wy + 25);
  EXPECT_EQ(draw(100, 100), 1);
  EXPECT_EQ(gameState.navigationOpen, 0);
}

TEST_F(NavigationTest, FadingLineRisesFromFiftyToFullAndStaysOnTheSurface) {
  SurfacePtr s = blankSurface(40, 40);
  fadingLine(s.get(), 5, 5, 6, 6, 255, 255, 255);
  EXPECT_NEAR(int(pixelRGB(s.get(), 5, 5) & 0xFF), 50, 2);
  EXPECT_EQ(pixelRGB(s.get(), 6, 6), 0xFFFFFFu);
  fadingLine(s.get(), 20, 20, 20, 20, 0, 255, 0);
  EXPECT_EQ(pixelRGB(s.get(), 20, 20), 0x00FF00u) << "a single point at full strength";
  fadingLine(s.get(), 2, 30, 9, 2, 255, 0, 0);
  EXPECT_EQ(pixelRGB(s.get(), 9, 2), 0xFF0000u) << "a steep line reaches its end exactly";
  fadingLine(s.get(), -500, -500, -400, -420, 255, 255, 255);  // off the surface: nothing written, no fault
  fadingLine(s.get(), 1000, 10, 1100, 10, 255, 255, 255);
}
