#include "universe/viewscreen.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "shell/debug_log.h"
#include "shell/main_loop.h"
#include "ship/ship.h"
#include "support/test_support.h"
#include "surface/globe.h"
#include "surface/surface_map.h"
#include "surface/terrain.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "universe/starfield.h"
#include "universe/viewing_tree.h"

namespace {

struct SurfaceDeleter {
  void operator()(SDL_Surface* s) const { SDL_FreeSurface(s); }
};
using OwnedSurface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

OwnedSurface solid(int w, int h, Uint32 rgb) {
  const SDL_PixelFormat* f = screen->format;
  OwnedSurface s(SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, f->Rmask, f->Gmask, f->Bmask, 0));
  SDL_FillRect(s.get(), nullptr, SDL_MapRGB(s->format, rgb >> 16, (rgb >> 8) & 0xFF, rgb & 0xFF));
  return s;
}

// Star images by class for these tests, in place of the loaded ones.
std::vector<std::pair<std::string, SDL_Surface*>> testImages;
SDL_Surface* testStarImage(const char* classText) {
  for (auto& [name, image] : testImages) {
    if (name == classText) return image;
  }
  return nullptr;
}

// Objects and view lists put on the star map for one test; the cells get back what they held.
class TestMap {
 public:
  ~TestMap() {
    for (auto it = cells_.rbegin(); it != cells_.rend(); ++it) {
      StarMapCell& cell = starMap[it->x][it->y];
      for (ViewNode* n = cell.viewList; n != it->viewList;) {
        ViewNode* next = n->next;
        delete n;
        n = next;
      }
      cell.viewList = it->viewList;
      delete cell.object;
      cell.object = it->object;
    }
  }
  StellarObject* place(int x, int y, const char* Class) {
    remember(x, y);
    auto* object = new StellarObject;
    object->x = x;
    object->y = y;
    std::snprintf(object->Class, sizeof object->Class, "%s", Class);
    starMap[x][y].object = object;
    return object;
  }
  // The view list of (x, y): exactly these objects, in this order.
  void view(int x, int y, std::initializer_list<std::pair<int, int>> objects) {
    remember(x, y);
    ViewNode* tail = starMap[x][y].viewList;
    for (auto it = std::rbegin(objects); it != std::rend(objects); ++it) {
      auto* node = new ViewNode;
      node->x = it->first;
      node->y = it->second;
      node->next = tail;
      tail = node;
    }
    starMap[x][y].viewList = tail;
  }

 private:
  void remember(int x, int y) {
    for (const Saved& s : cells_) {
      if (s.x == x && s.y == y) return;
    }
    cells_.push_back({x, y, starMap[x][y].viewList, starMap[x][y].object});
    starMap[x][y].object = nullptr;
  }
  struct Saved {
    int x, y;
    ViewNode* viewList;
    StellarObject* object;
  };
  std::vector<Saved> cells_;
};

constexpr Uint32 red = 0xFF0000, blue = 0x0000FF, green = 0x00FF00, magenta = 0xFF00FF;
constexpr Uint32 squareGreen = 0x00FF80;

// Pane coordinates on the screen: the pane sits at (5, 5).
Uint32 pane(int x, int y) { return pixelRGB(screen, 5 + x, 5 + y); }

class ViewscreenTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    while (starlist) removeStar(starlist);  // no background stars in the way
    viewscreenStarImage = testStarImage;
    shipImage = solid(6, 6, magenta);
    savedShip = shipImages[0];
    shipImages[0] = shipImage.get();
    setCurrentFont(fontTable.fonts[2]);
  }
  void TearDown() override {
    shipImages[0] = savedShip;
    viewscreenStarImage = starImage;
    testImages.clear();
  }
  void drawSpace(int offsetX, int offsetY) {
    drawViewscreen(screen, 0, 0, 0, offsetX, offsetY, starMap, 0, 0, nullptr, 0, sinTable, cosTable);
  }
  // Whether the pane's header rows show `text` centred as the current font prints it.
  static ::testing::AssertionResult headerShows(const char* text) {
    OwnedSurface reference = solid(500, 500, 0);
    centeredPrint(reference.get(), 15, "%s", text);
    const int h = fontHeight(currentFont());
    for (int y = 15; y < 15 + h; ++y) {
      for (int x = 0; x < 500; ++x) {
        if (pane(x, y) != pixelRGB(reference.get(), x, y))
          return ::testing::AssertionFailure() << "header differs from \"" << text << "\" at " << x << "," << y;
      }
    }
    return ::testing::AssertionSuccess();
  }

  OwnedSurface shipImage;
  SDL_Surface* savedShip = nullptr;
  TestMap map;
};

}  // namespace

TEST_F(ViewscreenTest, ObjectsArePlacedByCellAndFractionAroundTheShip) {
  OwnedSurface small = solid(3, 3, red), tall = solid(4, 60, blue);
  testImages = {{"G", small.get()}, {"M", tall.get()}};
  map.place(100, 100, "G");
  map.place(95, 105, "M");
  map.view(100, 100, {{95, 105}, {100, 100}});

  drawSpace(100 * 50, 100 * 50);
  EXPECT_EQ(pane(250, 201), red);
  EXPECT_EQ(pane(252, 203), red);
  EXPECT_EQ(pane(253, 201), 0u);
  EXPECT_EQ(pane(250, 200), 0u);
  // Five cells left and up: only the bottom 11 rows of the tall image reach the pane.
  EXPECT_EQ(pane(0, 0), blue);
  EXPECT_EQ(pane(3, 10), blue);
  EXPECT_EQ(pane(0, 11), 0u);
  EXPECT_EQ(pane(4, 0), 0u);
  // The ship sits at (225, 225), over everything.
  EXPECT_EQ(pane(225, 225), magenta);
  EXPECT_EQ(pane(230, 230), magenta);
  EXPECT_EQ(pane(231, 231), 0u);
  EXPECT_TRUE(headerShows("X:100  Y:100"));

  // Further along the first axis the objects move left; further along the second, down.
  drawSpace(100 * 50 + 10, 100 * 50 + 20);
  EXPECT_EQ(pane(240, 221), red);
  EXPECT_EQ(pane(242, 223), red);
  EXPECT_EQ(pane(243, 221), 0u);
  EXPECT_EQ(pane(240, 220), 0u);
}

TEST_F(ViewscreenTest, OffTheMapThePaneShowsTheNearestEdge) {
  OwnedSurface small = solid(3, 3, red), other = solid(3, 3, green);
  testImages = {{"K", small.get()}, {"F", other.get()}};
  map.place(0, 0, "K");
  map.view(0, 0, {{0, 0}});
  map.place(499, 499, "F");
  map.view(499, 499, {{499, 499}});

  drawSpace(-100, -70);  // a ship short of the map's first position
  EXPECT_EQ(pane(250, 201), red);
  EXPECT_TRUE(headerShows("X:0  Y:0"));

  // The frame after passing the last cell: the pane stays on cell 499.
  drawSpace(25008, 25040);
  EXPECT_EQ(pane(201, 250), green);
  EXPECT_TRUE(headerShows("X:499  Y:499"));
}

TEST_F(ViewscreenTest, ObjectsWithoutAnImageAndMissingShipImagesAreSkipped) {
  OwnedSurface small = solid(3, 3, red);
  testImages = {{"G", small.get()}};
  map.place(100, 100, "no such class");
  map.place(101, 100, "G");
  map.view(100, 100, {{100, 100}, {101, 100}});
  shipImages[0] = nullptr;
  drawSpace(100 * 50, 100 * 50);
  EXPECT_EQ(pane(300, 201), red);
  EXPECT_EQ(pane(250, 201), 0u);
  EXPECT_EQ(pane(225, 225), 0u);
  // A ship image number beyond the ship's images draws no ship either.
  drawViewscreen(screen, 0, 0, 200, 5000, 5000, starMap, 0, 0, nullptr, 0, sinTable, cosTable);
  EXPECT_EQ(pane(225, 225), 0u);
}

TEST_F(ViewscreenTest, PlanetsSitOnTheirOrbitsWithAGreenSquare) {
  StellarObject object;
  Planet inner, outer;
  inner.OrbitAngle = 0;
  outer.OrbitAngle = 90;  // no ViewImage: only its square is drawn
  OwnedSurface globe = solid(10, 10, blue);
  inner.ViewImage = globe.get();
  object.Planets[0] = &inner;
  object.Planets[3] = &outer;

  // The ship exactly on the inner planet's plane point: the planet at the pane's middle.
  drawViewscreen(screen, 0, 0, 0, 100 * 50, 96 * 50, starMap, 140 * 50, 102 * 50, &object, 1, sinTable, cosTable);
  EXPECT_EQ(pane(245, 244), blue);
  EXPECT_EQ(pane(254, 253), blue);
  EXPECT_EQ(pane(244, 244), 0u);
  EXPECT_EQ(pane(245, 243), 0u);
  EXPECT_EQ(pane(225, 240), squareGreen);
  EXPECT_EQ(pane(275, 240), squareGreen);
  EXPECT_EQ(pane(250, 224), squareGreen);
  EXPECT_EQ(pane(250, 274), squareGreen);
  EXPECT_EQ(pane(250, 223), 0u);
  EXPECT_TRUE(headerShows("X:100  Y:96"));

  // Lane 3 at 90 degrees lies near plane point (190, 122).
  drawViewscreen(screen, 0, 0, 0, 100 * 50, 96 * 50, starMap, 190 * 50, 122 * 50, &object, 1, sinTable, cosTable);
  EXPECT_EQ(pane(224, 252), squareGreen);
  EXPECT_EQ(pane(274, 252), squareGreen);
  EXPECT_EQ(pane(250, 226), squareGreen);
  EXPECT_EQ(pane(250, 276), squareGreen);
  EXPECT_EQ(pane(250, 252), 0u);

  // Far across the system nothing of either planet is on the pane, and nothing breaks.
  drawViewscreen(screen, 0, 0, 0, 0, 0, starMap, -30000, 900000, &object, 1, sinTable, cosTable);
  EXPECT_EQ(pane(250, 250), 0u);
}

TEST_F(ViewscreenTest, PreparingForAPlanetClearsThePanesAndResetsTheSurfaceState) {
  SDL_FillRect(screen, nullptr, SDL_MapRGB(screen->format, 255, 255, 255));
  globeRotation = 77;
  landingSite = SurfacePoint{3, 4};
  roverPosition = SurfacePoint{5, 6};
  Planet planet;
  planet.Seed = 4242;
  prepareGameWindow(screen, &planet);
  for (auto [x, y] : {std::pair{5, 5}, {505, 505}, {515, 5}, {795, 250}, {300, 300}}) {
    EXPECT_EQ(pixelRGB(screen, x, y), 0u) << x << "," << y;
  }
  for (auto [x, y] : {std::pair{4, 4}, {506, 300}, {510, 5}, {796, 100}, {600, 251}}) {
    EXPECT_EQ(pixelRGB(screen, x, y), 0xFFFFFFu) << x << "," << y;
  }
  EXPECT_EQ(globeRotation, 0);
  EXPECT_EQ(landingSite.x, 180);
  EXPECT_EQ(landingSite.y, 90);
  EXPECT_EQ(roverPosition.x, 1800);
  EXPECT_EQ(roverPosition.y, 900);
  auto expected = std::make_unique<Terrain>();
  generateTerrain(*expected, 4242);
  smoothTerrain(*expected);
  EXPECT_EQ(std::memcmp(expected->cells, terrain.cells, sizeof terrain.cells), 0);

  prepareGameWindow(screen, nullptr);  // no planet: the panes are still cleared
  EXPECT_EQ(landingSite.x, 180);
}

TEST_F(ViewscreenTest, InitialisationMakesTheFieldAndTheSurfaceMapWorkArea) {
  initGameWindow(shipImages, &fontTable, &playerShip);
  initGameWindow(shipImages, &fontTable, &playerShip);  // again: the old work surface is released
  ASSERT_NE(surfaceWorkSurface, nullptr);
  EXPECT_EQ(surfaceWorkSurface->w, 300);
  EXPECT_EQ(surfaceWorkSurface->h, 210);
  EXPECT_EQ(surfaceWorkSurface->format->BitsPerPixel, 32);
  EXPECT_EQ(surfaceSourceRect.x, 10);
  EXPECT_EQ(surfaceSourceRect.y, 10);
  EXPECT_EQ(surfaceSourceRect.w, 280);
  EXPECT_EQ(surfaceSourceRect.h, 190);
  EXPECT_EQ(surfaceDestPoint.x, 10);
  EXPECT_EQ(surfaceDestPoint.y, 310);
  EXPECT_EQ(starCount(), 500);
  const int last = previousLine(debugLog.writeIndex);
  EXPECT_STREQ(debugLog.lines[last], "Initializing background stars");
  EXPECT_STREQ(debugLog.lines[previousLine(last)], "Initializing Game Window");
}
