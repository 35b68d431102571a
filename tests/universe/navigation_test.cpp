#include "universe/navigation.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "shell/game_state.h"
#include "shell/main_loop.h"
#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

struct SurfaceDeleter {
  void operator()(SDL_Surface* s) const { SDL_FreeSurface(s); }
};
using OwnedSurface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

OwnedSurface blankLike(SDL_Surface* like, int w, int h) {
  const SDL_PixelFormat* f = like->format;
  return OwnedSurface(SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, f->Rmask, f->Gmask, f->Bmask, 0));
}

// Objects put on the star map for one test; the cells get back what they held.
class PlacedObjects {
 public:
  ~PlacedObjects() {
    for (auto it = placed_.rbegin(); it != placed_.rend(); ++it) {
      starMap[it->x][it->y].object = it->previous;
      delete it->object;
    }
  }
  StellarObject* place(int x, int y, const char* Class, const char* Eco = "Hot", int planets = 3) {
    auto* object = new StellarObject;
    object->x = x;
    object->y = y;
    std::snprintf(object->Class, sizeof object->Class, "%s", Class);
    std::snprintf(object->Eco, sizeof object->Eco, "%s", Eco);
    object->NumOfPlanets = planets;
    placed_.push_back({x, y, object, starMap[x][y].object});
    starMap[x][y].object = object;
    return object;
  }

 private:
  struct Entry {
    int x, y;
    StellarObject* object;
    StellarObject* previous;
  };
  std::vector<Entry> placed_;
};

// Whether the screen at (x, y) shows `text` as the font prints it on black.
::testing::AssertionResult showsText(int x, int y, int fontEntry, const std::string& text) {
  BitmapFont* font = fontTable.fonts[fontEntry];
  const int w = textWidth(font, text.c_str()), h = fontTable.heights[fontEntry];
  if (w <= 0 || h <= 0) return ::testing::AssertionFailure() << "font " << fontEntry << " prints nothing";
  OwnedSurface reference = blankLike(screen, w, h);
  putString(reference.get(), font, 0, 0, text.c_str());
  int inked = 0;
  for (int j = 0; j < h; ++j) {
    for (int i = 0; i < w; ++i) {
      const Uint32 want = pixelRGB(reference.get(), i, j);
      if (want) ++inked;
      if (pixelRGB(screen, x + i, y + j) != want) {
        return ::testing::AssertionFailure() << "\"" << text << "\" differs at " << x + i << "," << y + j;
      }
    }
  }
  if (inked == 0) return ::testing::AssertionFailure() << "\"" << text << "\" has no ink";
  return ::testing::AssertionSuccess();
}

Uint32 channel(Uint32 rgb, int shift) { return (rgb >> shift) & 0xFF; }

// Window coordinates on the screen: the window sits at (85, 5).
constexpr int wx = 85, wy = 5;

class NavigationTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    initNavigationWindow(&fontTable);
    scanCell = ChartCell{};
    gameState.navigationOpen = 1;
  }
  int draw(int column, int row, int topSpeed = 12) {
    return drawNavigationWindow(screen, starMap, column, row, topSpeed);
  }
  static int h() { return fontTable.heights[2]; }
};

}  // namespace

TEST_F(NavigationTest, MouseCellsMapToColumnsAndDisplayRows) {
  navigationMouseUp(196, 16);
  EXPECT_EQ(targetCell.column, 0);
  EXPECT_EQ(targetCell.row, 0);
  navigationMouseUp(694, 514);
  EXPECT_EQ(targetCell.column, 498);
  EXPECT_EQ(targetCell.row, 498);
  // Off the chart the target stays where it is.
  for (auto [x, y] : {std::pair{695, 100}, {300, 515}, {195, 100}, {300, 15}}) {
    navigationMouseUp(x, y);
    EXPECT_EQ(targetCell.column, 498) << x << "," << y;
    EXPECT_EQ(targetCell.row, 498) << x << "," << y;
  }
  navigationMouseMoved(400, 300);
  EXPECT_EQ(scanCell.column, 204);
  EXPECT_EQ(scanCell.row, 284);
  navigationMouseMoved(100, 300);
  EXPECT_EQ(scanCell.column, 204);
}

TEST_F(NavigationTest, ArrowKeysMoveTheTargetAndStopAtTheEdges) {
  targetCell = ChartCell{10, 10};
  moveTargetUp();
  moveTargetRight();
  EXPECT_EQ(targetCell.row, 9);
  EXPECT_EQ(targetCell.column, 11);
  moveTargetDown();
  moveTargetLeft();
  EXPECT_EQ(targetCell.row, 10);
  EXPECT_EQ(targetCell.column, 10);
  targetCell = ChartCell{0, 0};
  moveTargetUp();
  moveTargetLeft();
  EXPECT_EQ(targetCell.row, 0);
  EXPECT_EQ(targetCell.column, 0);
  targetCell = ChartCell{499, 499};
  moveTargetDown();
  moveTargetRight();
  EXPECT_EQ(targetCell.row, 499);
  EXPECT_EQ(targetCell.column, 499);
}

TEST_F(NavigationTest, InitialisationResetsTheChartAndReusesItsCursors) {
  // Headless SDL makes no cursors (both null); with a mouse they are two and stay the same.
  SDL_Cursor* crosshair = navigationCursor(false);
  SDL_Cursor* square = navigationCursor(true);
  if (crosshair) EXPECT_NE(crosshair, square);
  targetCell = ChartCell{3, 4};
  blinkAlpha = 90;
  blinkRising = false;
  initNavigationWindow(&fontTable);
  EXPECT_EQ(navigationCursor(false), crosshair);
  EXPECT_EQ(navigationCursor(true), square);
  if (crosshair) EXPECT_EQ(SDL_GetCursor(), crosshair);
  EXPECT_FALSE(navigationSquareCursorSelected());
  EXPECT_EQ(targetCell.column, 390);
  EXPECT_EQ(targetCell.row, 280);
  EXPECT_EQ(blinkAlpha, 0);
  EXPECT_TRUE(blinkRising);
  EXPECT_EQ(isNavigationWindowOpen(), 1);
}

TEST_F(NavigationTest, MarkersPulseUpAndDownByThirty) {
  std::vector<int> seen;
  for (int frame = 0; frame < 10; ++frame) {
    seen.push_back(blinkAlpha);
    draw(450, 450);
  }
  EXPECT_EQ(seen, (std::vector<int>{0, 30, 60, 90, 120, 150, 180, 210, 240, 210}));
  for (int frame = 0; frame < 6; ++frame) draw(450, 450);
  EXPECT_EQ(blinkAlpha, 0);
  draw(450, 450);
  EXPECT_EQ(blinkAlpha, 30);

  // A frame is drawn with the alpha from before its own step: the empty target's
  // crosshair arm at 120 comes out at about 120/255 of white.
  blinkAlpha = 120;
  blinkRising = true;
  draw(450, 450);
  const Uint32 arm = pixelRGB(screen, wx + 111 + 390 + 2, wy + 11 + 280);
  EXPECT_NEAR(static_cast<int>(channel(arm, 0)), 120, 3);
  EXPECT_EQ(channel(arm, 0), channel(arm, 16));
}

TEST_F(NavigationTest, DistanceAndFuelReadouts) {
  targetCell = ChartCell{103, 395};  // map row 104
  draw(100, 100, 12);
  ASSERT_LT(textWidth(fontTable.fonts[6], "5.00 SU"), 80);
  EXPECT_TRUE(showsText(wx + 10, wy + 140 + h(), 6, "5.00 SU"));
  EXPECT_TRUE(showsText(wx + 10, wy + 190 + h(), 6, "1.04 CU"));
  EXPECT_TRUE(showsText(wx + 10, wy + 60 + 2 * h(), 6, "X:100"));
  EXPECT_TRUE(showsText(wx + 10, wy + 60 + 3 * h(), 6, "Y:100"));
  EXPECT_TRUE(showsText(wx + 10, wy + 140, 2, "Distance"));

  // An engine with no top speed has no fuel figure rather than a division by zero.
  draw(100, 100, 0);
  EXPECT_TRUE(showsText(wx + 10, wy + 190 + h(), 6, "---"));
  EXPECT_FALSE(showsText(wx + 10, wy + 190 + h(), 6, "inf CU"));
}

TEST_F(NavigationTest, ShipAndTargetInOneCellJoinedByATwoPixelLine) {
  targetCell = ChartCell{203, 499 - 296};  // off the grid lines
  draw(203, 296);
  EXPECT_TRUE(showsText(wx + 10, wy + 140 + h(), 6, "0.00 SU"));
  // The ship's marker centre (faint end) is one pixel up and left of the target (bright end).
  const int sx = wx + 110 + 203, sy = wy + 10 + 499 - 296;
  const Uint32 faint = pixelRGB(screen, sx, sy), bright = pixelRGB(screen, sx + 1, sy + 1);
  EXPECT_NEAR(static_cast<int>(channel(faint, 8)), 50, 2);
  EXPECT_EQ(bright, 0xFFFFFFu);
}

TEST_F(NavigationTest, ObjectsAreClassColouredPixelsAndTheScanLineReadsThem) {
  PlacedObjects objects;
  objects.place(0, 0, "G");
  objects.place(250, 250, "White Drawf", "Cold", 4);
  objects.place(5, 7, "Z");  // an unknown class is not charted
  objects.place(300, 100, "Black Hole");
  targetCell = ChartCell{450, 450};
  draw(480, 480);
  EXPECT_EQ(pixelRGB(screen, wx + 111, wy + 11 + 499), 0xFFFF00u);
  EXPECT_EQ(pixelRGB(screen, wx + 111 + 250, wy + 11 + 249), 0xFF64FFu);
  EXPECT_EQ(pixelRGB(screen, wx + 111 + 300, wy + 11 + 399), 0x603913u);
  EXPECT_EQ(pixelRGB(screen, wx + 111 + 5, wy + 11 + 492), 0u);

  // Scanning the white dwarf: its details and the square cursor.
  navigationMouseMoved(196 + 250, 16 + 249);
  draw(480, 480);
  EXPECT_TRUE(navigationSquareCursorSelected());
  EXPECT_TRUE(showsText(wx + 107, wy + 550, 6, "250"));
  EXPECT_TRUE(showsText(wx + 157, wy + 550, 6, "250"));
  EXPECT_TRUE(showsText(wx + 300, wy + 550, 6, "White Drawf"));
  EXPECT_TRUE(showsText(wx + 480, wy + 550, 6, "Cold"));
  EXPECT_TRUE(showsText(wx + 600, wy + 550, 6, "4"));
  EXPECT_TRUE(showsText(wx + 10, wy + 550, 2, "( Scanning)"));
  // An empty cell: three dashes and the crosshair again.
  navigationMouseMoved(196 + 251, 16 + 249);
  draw(480, 480);
  EXPECT_FALSE(navigationSquareCursorSelected());
  EXPECT_TRUE(showsText(wx + 300, wy + 550, 6, "---"));
  EXPECT_TRUE(showsText(wx + 600, wy + 550, 6, "---"));
  // The targeting line reads the target cell in the same way.
  EXPECT_TRUE(showsText(wx + 107, wy + 565, 6, "450"));
  EXPECT_TRUE(showsText(wx + 157, wy + 565, 6, " 49"));
  EXPECT_TRUE(showsText(wx + 10, wy + 565, 2, "(Targeting)"));
}

TEST_F(NavigationTest, TargetOnAnObjectGetsACyanSquare) {
  PlacedObjects objects;
  objects.place(50, 60, "K");
  targetCell = ChartCell{50, 499 - 60};
  blinkAlpha = 240;
  blinkRising = false;
  draw(0, 0);  // the line to the target comes from below left, clear of the square's top right
  const int tx = wx + 111 + 50, ty = wy + 11 + 439;
  const Uint32 corner = pixelRGB(screen, tx + 3, ty - 3);
  EXPECT_EQ(channel(corner, 16), 0u);
  EXPECT_NEAR(static_cast<int>(channel(corner, 8)), 240, 3);
  EXPECT_EQ(channel(corner, 8), channel(corner, 0));
  EXPECT_EQ(pixelRGB(screen, tx + 2, ty - 2), 0u);  // inside the square
}

TEST_F(NavigationTest, CloseButtonClosesTheWindow) {
  navigationMouseMoved(wx + 45, wy + 25);
  navigationMouseDown();
  navigationMouseUp(wx + 45, wy + 25);
  EXPECT_EQ(draw(100, 100), 1);
  EXPECT_EQ(gameState.navigationOpen, 0);
  gameState.navigationOpen = 1;
  EXPECT_EQ(draw(100, 100), 0);
  EXPECT_EQ(gameState.navigationOpen, 1);
}

TEST_F(NavigationTest, FadingLineRisesFromFiftyToFull) {
  OwnedSurface s = blankLike(screen, 40, 40);
  fadingLine(s.get(), 5, 5, 6, 6, 255, 255, 255);
  EXPECT_NEAR(static_cast<int>(channel(pixelRGB(s.get(), 5, 5), 0)), 50, 2);
  EXPECT_EQ(pixelRGB(s.get(), 6, 6), 0xFFFFFFu);

  // A single point is drawn at full strength.
  fadingLine(s.get(), 20, 20, 20, 20, 0, 255, 0);
  EXPECT_EQ(pixelRGB(s.get(), 20, 20), 0x00FF00u);

  // Ten steps right: alpha 50, 75, ... and capped at 255 for the last two.
  OwnedSurface row = blankLike(screen, 40, 40);
  fadingLine(row.get(), 20, 3, 10, 3, 255, 255, 255);  // drawn from right to left
  int previous = -1;
  for (int x = 20; x >= 11; --x) {
    const int v = static_cast<int>(channel(pixelRGB(row.get(), x, 3), 0));
    EXPECT_GT(v, previous) << x;
    previous = v;
    if (x == 20) EXPECT_NEAR(v, 50, 2);
  }
  EXPECT_EQ(pixelRGB(row.get(), 10, 3), 0xFFFFFFu);
  EXPECT_EQ(pixelRGB(row.get(), 11, 3), 0xFFFFFFu);
  EXPECT_EQ(pixelRGB(row.get(), 9, 3), 0u);
  EXPECT_EQ(pixelRGB(row.get(), 20, 2), 0u);

  // A steep line reaches its end point exactly and stays one pixel wide.
  OwnedSurface steep = blankLike(screen, 40, 40);
  fadingLine(steep.get(), 2, 30, 9, 2, 255, 0, 0);
  EXPECT_EQ(pixelRGB(steep.get(), 9, 2), 0xFF0000u);
  int lit = 0;
  for (int y = 0; y < 40; ++y) {
    int inRow = 0;
    for (int x = 0; x < 40; ++x) inRow += pixelRGB(steep.get(), x, y) != 0;
    EXPECT_LE(inRow, 1) << y;
    lit += inRow;
  }
  EXPECT_EQ(lit, 29);

  // Far off the surface nothing is written and nothing breaks.
  fadingLine(s.get(), -500, -500, -400, -420, 255, 255, 255);
  fadingLine(s.get(), 1000, 10, 1100, 10, 255, 255, 255);
}
