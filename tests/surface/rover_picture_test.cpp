// The rover picture stands on the rover's own tile: wherever in its cell the
// rover is, heading north or south, the middle of what is drawn of it lies on
// the tile of that cell, which the view draws from 150 - rx, 400 - ry on screen.

#include <algorithm>
#include <cstring>
#include <iterator>

#include "base/game_state.h"
#include "base/screen.h"
#include "ship/ship.h"
#include "support/test_support.h"
#include "surface/rover.h"
#include "surface/surface_map.h"
#include "surface/terrain.h"
#include "ui/font_builder.h"
#include "universe/viewscreen.h"

TEST(RoverPicture, ItsMiddleIsOnTheRoversOwnTile) {
  ensureScreen();
  if (!surfaceWorkSurface) initGameWindow(shipImages, &fontTable, &playerShip);
  SDL_Surface* saved[std::size(shipImages)];
  std::copy(std::begin(shipImages), std::end(shipImages), saved);
  std::fill(std::begin(shipImages), std::end(shipImages), nullptr);
  Ship ship;
  loadShip(shipImages, ship, "Surveyor");
  terrain = Terrain{};  // elevation 0 everywhere: a black view
  Planet planet;
  std::strcpy(planet.Hydro, "Green");
  MineralDepositList none;
  for (int headingIndex : {0, 36})
    for (auto [rx, ry] : {std::pair{0, 0}, {9, 9}, {0, 9}, {9, 0}, {4, 6}}) {
      roverPosition = SurfacePoint{1800 + rx, 900 + ry};
      SDL_FillRect(screen, nullptr, 0);
      drawSurfaceView(screen, &planet, 255, headingIndex, 0, 0, none);
      int left = 800, right = -1, top = 600, bottom = -1;
      for (int y = 310; y < 500; ++y)
        for (int x = 10; x < 290; ++x)
          if (pixelRGB(screen, x, y))
            left = std::min(left, x), right = std::max(right, x), top = std::min(top, y), bottom = std::max(bottom, y);
      const double midX = (left + right) / 2.0, midY = (top + bottom) / 2.0;  // no rover: far off its tile
      EXPECT_TRUE(midX >= 150 - rx && midX <= 160 - rx && midY >= 400 - ry && midY <= 410 - ry)
          << "heading " << 5 * headingIndex << ", rover at " << rx << "," << ry << ": middle at " << midX << ","
          << midY;
    }
  for (SDL_Surface*& image : shipImages) SDL_FreeSurface(image);
  std::copy(std::begin(saved), std::end(saved), shipImages);
}
