#include "universe/viewscreen.h"

#include "support/test_support.h"
#include "universe/starfield.h"

constexpr Uint32 red = 0xFF0000, blue = 0x0000FF, magenta = 0xFF00FF, squareGreen = 0x00FF80;

static SurfacePtr solid(int w, int h, Uint32 rgb) {
  SurfacePtr s = blankSurface(w, h);
  SDL_FillRect(s.get(), nullptr, rgb);
  return s;
}

// In place of the loaded star images: G a small red square, M a tall blue bar, other classes none.
static SurfacePtr redSquare, blueBar, shipImage;
static SDL_Surface* testImage(const char* c) {
  return c[0] == 'G' ? redSquare.get() : c[0] == 'M' ? blueBar.get() : nullptr;
}

// Pixels of the pane, which sits at (5, 5) on the screen.
using PanePixel = std::tuple<int, int, Uint32>;
static void expectPane(std::initializer_list<PanePixel> pixels) {
  for (auto [x, y, rgb] : pixels) EXPECT_EQ(pixelRGB(screen, 5 + x, 5 + y), rgb) << x << "," << y;
}

// Whether the pane's header shows `text` centred in the current font.
static bool headerShows(const char* text) {
  SurfacePtr reference = blankSurface(500, 60);
  centeredPrint(reference.get(), 15, "%s", text);
  for (int i = 0; i < 500 * fontHeight(currentFont()); ++i)
    if (pixelRGB(screen, 5 + i % 500, 20 + i / 500) != pixelRGB(reference.get(), i % 500, 15 + i / 500)) return false;
  return currentFont() != nullptr;  // no font, no header
}

class ViewscreenTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    initGameWindow(shipImages, &fontTable, &playerShip);
    redSquare = solid(3, 3, red), blueBar = solid(4, 60, blue), shipImage = solid(6, 6, magenta);
    while (starlist) removeStar(starlist);  // no background stars in the way
    viewscreenStarImage = testImage;
    savedShip = std::exchange(shipImages[0], shipImage.get());
  }
  void TearDown() override {
    shipImages[0] = savedShip, viewscreenStarImage = starImage;
    redSquare.reset(), blueBar.reset(), shipImage.reset();
    releaseViewingTree(starMap);
  }
  void drawSpace(int offsetX, int offsetY, int ship = 0) {
    buildViewingTree(starMap);
    drawViewscreen(screen, 0, 0, ship, offsetX, offsetY, starMap, 0, 0, nullptr, 0, sinTable, cosTable);
  }
  SDL_Surface* savedShip = nullptr;
  PlacedObjects objects;
};

TEST_F(ViewscreenTest, ObjectsArePlacedByCellAndFractionAroundTheShip) {
  objects.place(100, 100, "G");
  objects.place(95, 105, "M");              // five cells left and up: at (0, -49), its bottom 11 rows show
  objects.place(97, 100, "no such class");  // drawn as nothing; the walk goes on
  setCurrentFont(nullptr);                  // no view has chosen a font yet: the header takes the text font
  drawSpace(100 * 50, 100 * 50);
  expectPane({{250, 201, red}, {252, 203, red}, {253, 201, 0}, {250, 200, 0}});
  expectPane({{3, 10, blue}, {0, 11, 0}, {225, 225, magenta}, {231, 231, 0}});
  EXPECT_TRUE(headerShows("X:100  Y:100"));
  drawSpace(100 * 50 + 10, 100 * 50 + 20, 200);  // objects move left and down; ship image 200 is none
  expectPane({{240, 221, red}, {243, 221, 0}, {240, 220, 0}, {225, 225, 0}});
  objects.place(499, 499, "M");
  drawSpace(25008, 25040);  // the frame after passing cell 499: the pane never looks outside the map
  expectPane({{201, 250, blue}});
  EXPECT_TRUE(headerShows("X:499  Y:499"));
}

TEST_F(ViewscreenTest, PlanetsSitOnTheirOrbitsWithAGreenSquare) {
  StellarObject o;
  Planet inner, outer;
  outer.OrbitAngle = 90;  // no ViewImage: only its square is drawn
  SurfacePtr globe = solid(10, 10, blue);
  inner.ViewImage = globe.get();
  o.Planets[0] = &inner, o.Planets[3] = &outer;
  auto draw = [&](int x, int y) {
    drawViewscreen(screen, 0, 0, 0, 5000, 4800, starMap, x, y, &o, 1, sinTable, cosTable);
  };
  draw(140 * 50, 102 * 50);  // exactly on the inner planet's cell: its image centred on the pane
  const std::initializer_list<PanePixel> shown = {
      {245, 244, blue},        {254, 253, blue},        {244, 244, 0},           {245, 243, 0}, {225, 240, squareGreen},
      {275, 240, squareGreen}, {250, 224, squareGreen}, {250, 274, squareGreen}, {250, 223, 0}};
  expectPane(shown);
  draw(190 * 50, 122 * 50);  // near lane 3 at 90 degrees
  expectPane({{224, 252, squareGreen}, {274, 252, squareGreen}, {250, 226, squareGreen}, {250, 252, 0}});
  draw(-30000, 900000);  // far across the system
  expectPane({{250, 250, 0}});
}

TEST_F(ViewscreenTest, PreparingForAPlanetClearsThePanesAndResetsTheSurfaceState) {
  SDL_FillRect(screen, nullptr, SDL_MapRGB(screen->format, 255, 255, 255));
  globeRotation = 77, landingSite = SurfacePoint{3, 4}, roverPosition = SurfacePoint{5, 6};
  Planet planet;
  prepareGameWindow(screen, &planet);
  for (auto [x, y] : {std::pair{5, 5}, {505, 505}, {515, 5}, {795, 250}}) EXPECT_EQ(pixelRGB(screen, x, y), 0u);
  for (auto [x, y] : {std::pair{4, 4}, {506, 300}, {510, 5}, {796, 100}}) EXPECT_EQ(pixelRGB(screen, x, y), 0xFFFFFFu);
  EXPECT_EQ(std::tuple(globeRotation, landingSite.x, landingSite.y, roverPosition.x, roverPosition.y),
            std::tuple(0, 180, 90, 1800, 900));
  prepareGameWindow(screen, nullptr);  // no planet: the panes are still cleared
}
