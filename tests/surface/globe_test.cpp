#include "support/test_support.h"
#include "universe/orbit_view.h"

namespace {

class GlobeTest : public GameTest {};

// Longitude stripes: the elevation of column x is x / 2, so a pixel's green tells its column.
std::unique_ptr<Terrain> stripes() {
  auto map = std::make_unique<Terrain>();
  for (int i = 0; i < terrainWidth * terrainHeight; ++i) map->cells[i] = std::uint8_t(i / terrainHeight / 2);
  return map;
}

Uint32 green(int shade) { return Uint32(shade) << 8; }

}  // namespace

TEST_F(GlobeTest, DiscOfRowsTurningTwoDegreesEveryTwoSteps) {
  auto map = stripes();
  SurfacePtr g(renderGlobe(*map, 0, "Green"));
  ASSERT_TRUE(g && g->w == 180 && g->h == 180);
  for (int x = 0; x < 180; ++x)
    ASSERT_TRUE(pixelRGB(g.get(), x, 0) == 0 && pixelRGB(g.get(), x, 90) != 0) << "black pole, full equator: " << x;
  // Row 1 is 13 pixels either side; row 179 is as wide as row 1.
  for (int r : {1, 179})
    for (auto [x, inside] : {std::pair{76, false}, {77, true}, {102, true}, {103, false}})
      EXPECT_EQ(pixelRGB(g.get(), x, r) != 0, inside) << x << "," << r;
  // The acos mapping with 3.14 for pi: the left rim shows column 179, the middle 269, the right rim 351.
  EXPECT_EQ(std::tuple(pixelRGB(g.get(), 0, 90), pixelRGB(g.get(), 90, 90), pixelRGB(g.get(), 179, 90)),
            std::tuple(green(179 / 2), green(269 / 2), green(351 / 2)));
  SurfacePtr r1(renderGlobe(*map, 1, "Green")), r2(renderGlobe(*map, 2, "Green")),
      r360(renderGlobe(*map, 360, "Green"));
  for (int i = 0; i < 180 * 180; ++i) {
    const int x = i % 180, y = i / 180;
    const Uint32 p0 = pixelRGB(g.get(), x, y);
    ASSERT_TRUE(pixelRGB(r1.get(), x, y) == p0 && pixelRGB(r360.get(), x, y) == p0) << x << "," << y;
    // One step of shift shows the column two degrees west: the shade one lower, round the circle.
    ASSERT_TRUE(p0 == 0 || pixelRGB(r2.get(), x, y) == green(((p0 >> 8) + 179) % 180)) << x << "," << y;
  }
}

TEST_F(GlobeTest, SurfaceGlobeIsDrawnAtItsPlaceAndTurns) {
  terrain = *stripes();
  globeRotation = 359;
  drawSurfaceGlobe(screen, "Green");
  SurfacePtr expected(renderGlobe(terrain, 359, "Green"));
  for (auto [x, y] : {std::pair{0, 90}, {90, 90}, {179, 90}})
    EXPECT_EQ(pixelRGB(screen, 50 + x, 315 + y), pixelRGB(expected.get(), x, y)) << x << "," << y;
  EXPECT_EQ(globeRotation, 0);
  terrain = Terrain{};
}

TEST_F(GlobeTest, PlanetImagesTakeTheNextAnglesAndAreFreedWhenRemade) {
  PlacedObjects objects;
  StellarObject* o = objects.place(7, 7, "G", "Lane 3", 3);
  for (int lane : {2, 7, 9}) o->Planets[lane] = new Planet;
  for (int i = 0; i < 360; ++i) orbitAngles[i] = (i * 7) % 360;
  angleCursor = 355, orbitAlpha = 130, blinkRising = false;
  buildPlanetImages(o);
  // Places 356..359 and then 0..5: lane 2 takes place 358, lane 7 place 3, lane 9 place 5.
  EXPECT_EQ(angleCursor, 5);
  EXPECT_EQ((std::vector{o->Planets[2]->OrbitAngle, o->Planets[7]->OrbitAngle, o->Planets[9]->OrbitAngle}),
            (std::vector{(358 * 7) % 360, 21, 35}));
  EXPECT_STREQ(lastMessage(2), "Planet detected at lane: 2");
  EXPECT_STREQ(lastMessage(0), "Planet detected at lane: 9");
  EXPECT_TRUE(orbitAlpha == 0 && blinkRising) << "the orbit view's pulse starts again, rising";
  for (int lane : {2, 7, 9}) ASSERT_TRUE(o->Planets[lane]->ViewImage && o->Planets[lane]->OrbitImage);
  // Entering again frees the old images and makes new ones with the next angles; leaving frees them.
  SDL_Surface *oldOrbit = o->Planets[7]->OrbitImage, *oldView = o->Planets[7]->ViewImage;
  ++oldOrbit->refcount, ++oldView->refcount;  // kept alive here to see them released
  buildPlanetImages(o);
  EXPECT_EQ(angleCursor, 15);
  EXPECT_EQ(std::pair(oldOrbit->refcount, oldView->refcount), std::pair(1, 1));
  SDL_FreeSurface(oldOrbit), SDL_FreeSurface(oldView);
  releasePlanetImages(o);
  for (int lane : {2, 7, 9}) EXPECT_TRUE(!o->Planets[lane]->ViewImage && !o->Planets[lane]->OrbitImage);
  buildPlanetImages(nullptr);
  releasePlanetImages(nullptr);
  angleCursor = 0;
}
