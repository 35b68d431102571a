// Planet images and the orbited terrain made through the worker thread (cold, made ahead, worker still busy) are
// pixel for pixel what the plain path makes on this thread, and leave the random generator where it leaves it.
#include "surface/terrain_cache.h"

#include <SDL_rotozoom.h>

#include "support/test_support.h"

namespace {

std::unique_ptr<Terrain> plainTerrain(std::int32_t seed) {
  auto map = std::make_unique<Terrain>();
  generateTerrain(*map, seed);
  smoothTerrain(*map);
  return map;
}

bool samePixels(SDL_Surface* a, SDL_Surface* b) {
  return a && b && a->w == b->w && a->h == b->h && differingPixels(a, b, 0, 0, a->w, a->h) == 0;
}

}  // namespace

TEST(TerrainCache, PlanetImagesAndOrbitTerrainMatchThePlainPathWhateverTheWorkerHasDone) {
  ensureScreen();
  PlacedObjects objects;
  constexpr int lanes = 10;
  StellarObject* o = objects.place(40, 40, "G", "Lane 3", lanes);
  const char* spheres[] = {"Water", "Green", "None", "Lava", "Methane"};
  // Every zoom of the view image, its gravity bands' edges included.
  const float gravities[lanes] = {1.0f, 1.99f, 2.0f, 3.9f, 4.0f, 6.0f, 8.0f, 9.99f, 10.0f, 12.0f};
  const double zooms[lanes] = {0.5, 0.5, 0.6, 0.6, 0.7, 0.8, 0.9, 0.9, 1.0, 1.0};
  std::vector<SurfacePtr> view, orbit;
  for (int i = 0; i < lanes; ++i) {
    Planet* p = o->Planets[i] = new Planet;
    p->Seed = i == 3 ? -5 : 90001 * (i == 8 ? 7 : i) + 17;  // a negative seed, two planets alike
    p->Gravity = gravities[i];
    std::snprintf(p->Hydro, 20, "%s", spheres[i % 5]);
    SurfacePtr globe(renderGlobe(*plainTerrain(p->Seed), 0, p->Hydro));
    view.emplace_back(rotozoomSurface(globe.get(), 0, zooms[i], SMOOTHING_OFF));
    orbit.emplace_back(rotozoomSurface(globe.get(), 0, 0.06, SMOOTHING_OFF));
  }
  const unsigned int after = randomState();  // as the last planet's terrain left it

  for (const char* way : {"cold", "made ahead", "worker busy"}) {
    SCOPED_TRACE(way);
    forgetTerrains();
    if (way[0] != 'c') prepareSystemsNear(41, 42);  // two cells off
    if (way[0] == 'm') waitForTerrains();
    seedRandom(1);
    buildPlanetImages(o);
    EXPECT_EQ(randomState(), after);
    for (std::size_t i = 0; i < lanes; ++i)
      EXPECT_TRUE(samePixels(o->Planets[i]->ViewImage, view[i].get()) &&
                  samePixels(o->Planets[i]->OrbitImage, orbit[i].get()))
          << i;
    releasePlanetImages(o);
  }
  // Orbit takes the terrain made on entry: the same cells and generator state as a fresh generation.
  const std::unique_ptr<Terrain> fresh = plainTerrain(o->Planets[3]->Seed);
  const unsigned int afterOrbit = randomState();
  seedRandom(2);
  prepareGameWindow(nullptr, o->Planets[3]);
  EXPECT_EQ(std::memcmp(terrain.cells, fresh->cells, sizeof fresh->cells), 0);
  EXPECT_EQ(randomState(), afterOrbit);
  waitForTerrains();
}
