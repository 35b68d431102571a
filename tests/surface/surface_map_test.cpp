// The surface map: the terrain pixels and the site marker read back from the
// screen, coordinates and their read-outs, site choice by mouse and by key,
// and the deposit dots.

#include <SDL_gfxPrimitives.h>

#include "shell/input.h"
#include "support/test_support.h"

namespace {

class SurfaceMapTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    terrain = Terrain{};
    landingSite = SurfacePoint{180, 90};
    roverPosition = SurfacePoint{1800, 900};
    scanCursor = SurfacePoint{};
    SDL_FillRect(screen, nullptr, 0);
    std::strcpy(planet.Hydro, "Green");  // elevation e shades as the pixel e << 8
  }
  Planet planet;
};

// Whether the rectangle of `a` at (x, y) w x h matches the same one of `b`.
bool sameRegion(SDL_Surface* a, SDL_Surface* b, int x, int y, int w, int h) {
  for (int j = y; j < y + h; ++j)
    for (int i = x; i < x + w; ++i)
      if (pixelRGB(a, i, j) != pixelRGB(b, i, j)) return false;
  return true;
}

// Whether the screen shows `text` in font entry 2 at (x, y) on black, w pixels wide.
bool showsValue(int x, int y, int w, const char* text) {
  const SurfacePtr want = blankSurface(800, 600);
  printString(want.get(), fontTable.fonts[2], x, y, "%s", text);
  return sameRegion(screen, want.get(), x, y, w, 11);
}

}  // namespace

TEST_F(SurfaceMapTest, ScanCoordinatesFollowTheMouseAndStopAtTheEdges) {
  const struct {
    int mx, my;
    const char* text;
  } cases[] = {{25, 20, "90'N 180'W"},   {205, 110, "0'S 0'E"}, {384, 199, "89'S 179'E"}, {0, 0, "90'N 180'W"},
               {799, 599, "89'S 179'E"}, {204, 109, "1'N 1'W"}, {100, 150, "40'S 105'W"}};
  for (const auto& c : cases) {
    trackScanCursor(c.mx, c.my);
    EXPECT_EQ(coordinateText(scanCursor.x, scanCursor.y), c.text) << c.mx << "," << c.my;
    drawCoordinates(screen);  // each value over the last one: the box must clear it
    EXPECT_TRUE(showsValue(425, 340, 71, c.text)) << c.text;
  }
}

TEST_F(SurfaceMapTest, FuelAndCargoSpaceReadOuts) {
  const struct {
    float fuel, free;
    const char *fuelText, *cargoText;
  } cases[] = {{0.0f, 12.5f, "0.00%", "25.00%"}, {100.0f, 50.0f, "100.00%", "100.00%"}, {7.5f, 0.0f, "7.50%", "0.00%"}};
  for (const auto& c : cases) {
    playerShip.roverFuel = c.fuel;
    playerShip.roverHoldFree = c.free;
    drawCoordinates(screen);
    EXPECT_TRUE(showsValue(375, 400, 51, c.fuelText)) << c.fuelText;
    EXPECT_TRUE(showsValue(390, 430, 51, c.cargoText)) << c.cargoText;
  }
}

TEST_F(SurfaceMapTest, ClicksInTheViewscreenPaneChooseTheSite) {
  const struct {
    int mx, my;
    SurfacePoint site;
    int clicked;
  } cases[] = {{700, 100, {180, 90}, 0}, {500, 400, {359, 179}, 1}, {100, 50, {75, 30}, 1}};
  for (const auto& c : cases) {
    landingSite = SurfacePoint{180, 90};
    roverPosition = SurfacePoint{1800, 900};
    gameState.siteClicked = 0;
    onMouseMotion(c.mx, c.my);
    onMouseButtonDown(c.mx, c.my);
    onMouseButtonUp(c.mx, c.my);
    EXPECT_EQ(std::tuple(landingSite.x, landingSite.y, roverPosition.x, roverPosition.y, gameState.siteClicked),
              std::tuple(c.site.x, c.site.y, c.site.x * 10, c.site.y * 10, c.clicked))
        << c.mx;
  }
}

// While Select Site is chosen the arrows move the site a cell, stopping at the map's edges;
// otherwise they are held for the flight controls.
TEST_F(SurfaceMapTest, ArrowKeysMoveTheSiteOnlyWhileSelectSiteIsChosen) {
  onKeyDown(SDLK_DOWN);
  EXPECT_EQ(std::pair(gameState.downHeld, landingSite.y), std::pair(1, 90));
  onKeyUp(SDLK_DOWN);
  setCurrentMenu(LandingMenu);
  setCurrentItem(SelectSiteItem);
  toggleItemSelected();
  const struct {
    SurfacePoint from;
    SDLKey key;
    SurfacePoint to;
  } cases[] = {{{10, 10}, SDLK_LEFT, {9, 10}},       {{10, 10}, SDLK_UP, {10, 9}},
               {{10, 10}, SDLK_RIGHT, {11, 10}},     {{10, 10}, SDLK_DOWN, {10, 11}},
               {{0, 0}, SDLK_LEFT, {0, 0}},          {{0, 0}, SDLK_UP, {0, 0}},
               {{359, 179}, SDLK_RIGHT, {359, 179}}, {{200, 179}, SDLK_DOWN, {200, 179}}};
  for (const auto& c : cases) {
    landingSite = c.from;
    gameState.siteClicked = 0;
    onKeyDown(c.key);
    EXPECT_EQ(std::tuple(landingSite.x, landingSite.y, roverPosition.x, roverPosition.y, gameState.downHeld),
              std::tuple(c.to.x, c.to.y, c.to.x * 10, c.to.y * 10, 0))
        << c.key;
    EXPECT_EQ(gameState.siteClicked, 1) << c.key;
  }
  landingSite = SurfacePoint{10, 10};
  moveSite(7);  // no such direction
  EXPECT_EQ(std::tuple(landingSite.x, landingSite.y, roverPosition.x), std::tuple(10, 10, 100));
}

TEST_F(SurfaceMapTest, MapShowsEveryCellAndAWrappingSiteMarker) {
  for (int x = 0; x < 360; ++x)
    for (int y = 0; y < 180; ++y) terrain.cells[x * 180 + y] = static_cast<std::uint8_t>((x + 3 * y) % 200 + 40);
  landingSite = SurfacePoint{3, 5};
  drawSurfaceMap(screen, &planet);

  // The marker: rows 5 + 20 and columns 3 + 25 whole; the box's left edge at
  // column 3 - 14 = -11 -> 349, its top at row 5 - 9 = -4 -> 176, its right
  // edge at column 17 and its bottom at row 15.
  auto onMarker = [](int x, int y) {
    const bool inCols = x >= 349 || x <= 16, inRows = y >= 176 || y <= 14;  // -11 .. 16 and -4 .. 14 wrapped
    return y == 5 || x == 3 || ((y == 176 || y == 15) && inCols) || ((x == 349 || x == 17) && inRows);
  };
  int markerPixels = 0;
  for (int x = 0; x < 360; ++x) {
    for (int y = 0; y < 180; ++y) {
      const Uint32 want = static_cast<Uint32>((x + 3 * y) % 200 + 40) << 8;
      const Uint32 got = pixelRGB(screen, x + 25, y + 20);
      if (onMarker(x, y)) {
        ++markerPixels;
        EXPECT_NE(got, want) << x << "," << y;
        EXPECT_GT(got & 0xFF, 0u) << x << "," << y;  // blue blended in
      } else {
        ASSERT_EQ(got, want) << x << "," << y;
      }
    }
  }
  // Cross hairs 360 + 180 - 1, box 2 x 28 + 2 x 19 less its one shared corner,
  // less the four points where the box crosses the hairs.
  EXPECT_EQ(markerPixels, 539 + 93 - 4);
  // Nothing around the map.
  for (int x = 20; x < 390; ++x) {
    EXPECT_EQ(pixelRGB(screen, x, 19), 0u);
    EXPECT_EQ(pixelRGB(screen, x, 200), 0u);
  }
}

TEST_F(SurfaceMapTest, DepositDotsMatchTheLibrarysCirclesAndSkipEmptiedOnes) {
  MineralDepositList deposits = {{10, 10, 0, 5.0f},  {11, 10, 21, 1.0f}, {12, 12, 3, 0.0f}, {0, 0, 7, 2.0f},
                                 {359, 179, 9, 3.f}, {11, 11, 30, 1.0f}, {100, 50, 5, 1.0f}};
  drawDeposits(screen, deposits);
  SurfacePtr want = blankSurface(800, 600);
  for (const MineralDeposit& d : deposits)
    if (d.amount != 0.0f) filledCircleColor(want.get(), d.x + 25, d.y + 20, 1, mineralColor(d.kind, 255));
  EXPECT_TRUE(sameRegion(screen, want.get(), 0, 0, 400, 220));
  EXPECT_EQ(pixelRGB(screen, 12 + 25, 12 + 20), 0u) << "an emptied deposit is not drawn";
  EXPECT_NE(pixelRGB(screen, 100 + 25, 50 + 20 - 1), 0u);
}

TEST_F(SurfaceMapTest, LegendScaleAndMinerals) {
  drawSurfaceLegend(screen, &planet);
  EXPECT_EQ(pixelRGB(screen, 415, 200), 0u) << "bottom line shade 0";
  EXPECT_EQ(pixelRGB(screen, 415, 21), 253u << 8) << "top line shade 253";
  for (int y = 200, previous = 0; y > 20; --y) {  // the shades only rise, the same in both columns
    const int shade = int(pixelRGB(screen, 405, y) >> 8);
    EXPECT_GE(shade, previous) << y;
    EXPECT_EQ(pixelRGB(screen, 425, y), Uint32(shade) << 8);
    previous = shade;
  }
  EXPECT_EQ(pixelRGB(screen, 415, 20), 0u);
  // Dots of Lead (column 25, row 215) and Shyneum (column 430, row 230).
  EXPECT_EQ(pixelRGB(screen, 25, 220), mineralColor(0, 255) >> 8);
  EXPECT_EQ(pixelRGB(screen, 430, 235), mineralColor(21, 255) >> 8);
  // Mineral m in column m / 5, row m % 5; a few names in bold (entry 3), the others in entry 2.
  const int columns[] = {25, 105, 220, 340, 430}, rows[] = {215, 230, 245, 260, 275};
  for (int m = 0; m < mineralCount; ++m) {
    const bool bold = m == 2 || m == 6 || m == 9 || m == 10 || m == 13;
    EXPECT_TRUE(showsText(screen, columns[m / 5] + 10, rows[m % 5], fontTable.fonts[bold ? 3 : 2], mineralName(m), 1000,
                          true, 10))
        << mineralName(m);
  }
  for (auto [y, label] : {std::pair{20, "High"}, {105, "Elevation"}, {185, "Low"}})
    EXPECT_TRUE(showsText(screen, 430, y, fontTable.fonts[2], label, 1000, true)) << label;
  const char* labels[] = {"Scan coordinates: ", "Land coordinates: ", "Fuel left: ", "Cargo space: ", "Damage: "};
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(showsText(screen, 300, 340 + 30 * i, fontTable.fonts[2], labels[i])) << i;
  EXPECT_EQ(currentFont(), fontTable.fonts[2]);
}

TEST_F(SurfaceMapTest, ScreenTooSmallForTheMapIsLeftAlone) {
  LogWatch log;
  SurfacePtr small = blankSurface(100, 100);
  drawSurfaceMap(small.get(), &planet);
  drawSurfaceMap(nullptr, &planet);
  EXPECT_TRUE(log.saw("cannot hold the surface map"));
  EXPECT_EQ(pixelRGB(small.get(), 50, 50), 0u);
}
