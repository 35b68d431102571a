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

// Whether the screen shows `text` in font entry 2 at (x, y) on black, w pixels wide.
bool showsValue(int x, int y, int w, const std::string& text) {
  const SurfacePtr want = blankSurface(800, 600);
  printString(want.get(), fontTable.fonts[2], x, y, "%s", text.c_str());
  return differingPixels(screen, want.get(), x, y, x + w, y + 11) == 0;
}

}  // namespace

// Each value is drawn over the last one: its box must clear it.
TEST_F(SurfaceMapTest, ScanCoordinatesFuelAndCargoReadOuts) {
  const struct {
    int mx, my;
    const char* text;
    float fuel, free;
    const char *fuelText, *cargoText;
  } cases[] = {{25, 20, "90'N 180'W", 0.0f, 12.5f, "0.00%", "25.00%"},
               {205, 110, "0'S 0'E", 100.0f, 50.0f, "100.00%", "100.00%"},
               {384, 199, "89'S 179'E", 7.5f, 0.0f, "7.50%", "0.00%"},
               {799, 599, "89'S 179'E", 0, 0, "0.00%", "0.00%"},
               {204, 109, "1'N 1'W", 0, 0, "0.00%", "0.00%"}};
  for (const auto& c : cases) {
    trackScanCursor(c.mx, c.my);
    playerShip.roverFuel = c.fuel;
    playerShip.roverHoldFree = c.free;
    drawCoordinates(screen);
    EXPECT_EQ(coordinateText(scanCursor.x, scanCursor.y), c.text) << c.mx << "," << c.my;
    EXPECT_TRUE(showsValue(425, 340, 71, c.text) && showsValue(375, 400, 51, c.fuelText) &&
                showsValue(390, 430, 51, c.cargoText))
        << c.text << " " << c.fuelText << " " << c.cargoText;
  }
}

// With Select Site chosen the arrows move the site a cell, stopping at the map's edges.
TEST_F(SurfaceMapTest, ArrowKeysMoveTheSiteToTheEdges) {
  setCurrentMenu(LandingMenu), setCurrentItem(SelectSiteItem), toggleItemSelected();
  const SDLKey keys[] = {SDLK_LEFT, SDLK_UP, SDLK_RIGHT, SDLK_DOWN};
  const SurfacePoint fromCorner[] = {{0, 0}, {0, 0}, {1, 0}, {0, 1}},
                     fromEnd[] = {{358, 179}, {359, 178}, {359, 179}, {359, 179}};
  for (int k = 0; k < 4; ++k)
    for (auto [from, to] : {std::pair{SurfacePoint{0, 0}, fromCorner[k]}, {SurfacePoint{359, 179}, fromEnd[k]}}) {
      landingSite = from, gameState.siteClicked = 0;
      onKeyDown(keys[k]);
      EXPECT_EQ(std::tuple(landingSite.x, landingSite.y, roverPosition.x, roverPosition.y, gameState.siteClicked,
                           gameState.downHeld),
                std::tuple(to.x, to.y, to.x * 10, to.y * 10, 1, 0))
          << "key " << k << " from " << from.x;
    }
}

TEST_F(SurfaceMapTest, MapShowsEveryCellAndAWrappingSiteMarker) {
  for (int i = 0; i < 360 * 180; ++i)
    terrain.cells[i] = static_cast<std::uint8_t>((i / 180 + 3 * (i % 180)) % 200 + 40);
  landingSite = SurfacePoint{3, 5};
  drawSurfaceMap(screen, &planet);
  // Cross hairs on row 5 and column 3; the box from column -11 (349) to 17 and row -4 (176) to 15.
  auto onMarker = [](int x, int y) {
    const bool inCols = x >= 349 || x <= 16, inRows = y >= 176 || y <= 14;
    return y == 5 || x == 3 || ((y == 176 || y == 15) && inCols) || ((x == 349 || x == 17) && inRows);
  };
  int markerPixels = 0;
  for (int x = 0; x < 360; ++x) {
    for (int y = 0; y < 180; ++y) {
      const Uint32 want = static_cast<Uint32>((x + 3 * y) % 200 + 40) << 8, got = pixelRGB(screen, x + 25, y + 20);
      if (onMarker(x, y)) {
        ++markerPixels;
        EXPECT_TRUE(got != want && (got & 0xFF) > 0) << x << "," << y;  // blue blended in
      } else {
        ASSERT_EQ(got, want) << x << "," << y;
      }
    }
  }
  // Cross hairs 360 + 180 - 1, box 2 x 28 + 2 x 19 less its shared corner, less four crossings.
  EXPECT_EQ(markerPixels, 539 + 93 - 4);
  EXPECT_EQ(litPixels(screen, 20, 19, 390, 20) + litPixels(screen, 20, 200, 390, 201), 0) << "nothing around the map";
}

TEST_F(SurfaceMapTest, DepositDotsMatchTheLibrarysCirclesAndSkipEmptiedOnes) {
  MineralDepositList deposits = {{10, 10, 0, 5.0f}, {11, 10, 21, 1.0f}, {12, 12, 3, 0.0f},
                                 {0, 0, 7, 2.0f},   {359, 179, 9, 3.f}, {11, 11, 30, 1.0f}};
  const SDL_Rect clip{0, 30, 800, 570};  // dots on its top row, at (35, 30) and (36, 30), keep what lies inside
  SDL_SetClipRect(screen, &clip);
  drawDeposits(screen, deposits);
  SurfacePtr want = blankSurface(800, 600);
  SDL_SetClipRect(want.get(), &clip);
  for (const MineralDeposit& d : deposits)
    if (d.amount != 0.0f) filledCircleColor(want.get(), d.x + 25, d.y + 20, 1, mineralColor(d.kind, 255));
  EXPECT_EQ(differingPixels(screen, want.get(), 0, 0, 400, 220), 0);
  SDL_SetClipRect(screen, nullptr);
}

TEST_F(SurfaceMapTest, LegendScaleAndMinerals) {
  drawSurfaceLegend(screen, &planet);
  EXPECT_EQ(std::tuple(pixelRGB(screen, 415, 200), pixelRGB(screen, 415, 21), pixelRGB(screen, 415, 20)),
            std::tuple(0u, 253u << 8, 0u))
      << "shades 0 at the bottom to 253 at the top";
  // Mineral m in column m / 5, row m % 5: its dot, then its name, a few in bold (entry 3), the others in entry 2.
  const int columns[] = {25, 105, 220, 340, 430}, rows[] = {215, 230, 245, 260, 275};
  for (int m = 0; m < mineralCount; ++m) {
    EXPECT_EQ(pixelRGB(screen, columns[m / 5], rows[m % 5] + 5), mineralColor(m, 255) >> 8) << m;
    BitmapFont* font = fontTable.fonts[m == 2 || m == 6 || m == 9 || m == 10 || m == 13 ? 3 : 2];
    EXPECT_TRUE(showsText(screen, columns[m / 5] + 10, rows[m % 5], font, mineralName(m), 1000, true, 10)) << m;
  }
  for (auto [y, label] : {std::pair{20, "High"}, {105, "Elevation"}, {185, "Low"}})
    EXPECT_TRUE(showsText(screen, 430, y, fontTable.fonts[2], label, 1000, true)) << label;
}
