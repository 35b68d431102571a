// Planet images and the orbited terrain made through the worker thread must be
// exactly what the plain path makes: generate and smooth on this thread, then
// render and zoom. Both are built here side by side, cold, made ahead, and with
// the worker still busy, and compared pixel by pixel; the program's random
// generator must stand afterwards where the plain path leaves it.
#include "surface/terrain_cache.h"

#include <SDL_rotozoom.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "platform/random.h"
#include "support/test_support.h"
#include "surface/globe.h"
#include "surface/surface_map.h"
#include "surface/terrain.h"

namespace {

constexpr int lanes = 10;

struct Reference {
  SurfacePtr view, orbit;
};

// The plain path for one planet, straight from the seed.
Reference plainImages(const Planet& p, double zoom) {
  auto map = std::make_unique<Terrain>();
  generateTerrain(*map, p.Seed);
  smoothTerrain(*map);
  SurfacePtr g(renderGlobe(*map, 0, p.Hydro));
  return {SurfacePtr(rotozoomSurface(g.get(), 0, zoom, SMOOTHING_OFF)),
          SurfacePtr(rotozoomSurface(g.get(), 0, 0.06, SMOOTHING_OFF))};
}

bool samePixels(SDL_Surface* a, SDL_Surface* b) {
  if (!a || !b || a->w != b->w || a->h != b->h) return false;
  for (int y = 0; y < a->h; ++y)
    if (std::memcmp(static_cast<Uint8*>(a->pixels) + y * a->pitch, static_cast<Uint8*>(b->pixels) + y * b->pitch,
                    static_cast<std::size_t>(a->w) * 4) != 0)
      return false;
  return true;
}

// The generator after the last planet's terrain: its seed, then one draw per
// height-field point (2^18 - 1 of them).
unsigned int stateAfterTerrain(std::int32_t seed) {
  seedRandom(static_cast<unsigned int>(seed));
  for (int i = 0; i < 262143; ++i) nextRandom();
  return randomState();
}

}  // namespace

TEST(TerrainCache, PlanetImagesAndOrbitTerrainMatchThePlainPathWhateverTheWorkerHasDone) {
  ensureScreen();
  PlacedObjects objects;
  StellarObject* o = objects.place(40, 40, "G", "Lane 3", lanes);
  const char* spheres[] = {"Water", "Green", "None", "Lava", "Methane"};
  // Every zoom of the view image, its gravity bands' edges included.
  const float gravities[lanes] = {1.0f, 1.99f, 2.0f, 3.9f, 4.0f, 6.0f, 8.0f, 9.99f, 10.0f, 12.0f};
  const double zooms[lanes] = {0.5, 0.5, 0.6, 0.6, 0.7, 0.8, 0.9, 0.9, 1.0, 1.0};
  for (int i = 0; i < lanes; ++i) {
    o->Planets[i] = new Planet;
    o->Planets[i]->Seed = i == 3 ? -5 : 90001 * (i == 8 ? 7 : i) + 17;  // a negative seed, two planets alike
    o->Planets[i]->Gravity = gravities[i];
    std::snprintf(o->Planets[i]->Hydro, 20, "%s", spheres[i % 5]);
  }
  std::vector<Reference> want;
  for (int i = 0; i < lanes; ++i) want.push_back(plainImages(*o->Planets[i], zooms[i]));
  const unsigned int after = stateAfterTerrain(o->Planets[lanes - 1]->Seed);

  const char* ways[] = {"cold", "made ahead", "worker busy"};
  for (const char* way : ways) {
    SCOPED_TRACE(way);
    forgetTerrains();
    if (std::strcmp(way, "cold") != 0) prepareSystemsNear(41, 42);  // two cells off
    if (std::strcmp(way, "made ahead") == 0) waitForTerrains();
    seedRandom(1);
    buildPlanetImages(o);
    EXPECT_EQ(randomState(), after);
    for (int i = 0; i < lanes; ++i) {
      EXPECT_TRUE(samePixels(o->Planets[i]->ViewImage, want[static_cast<std::size_t>(i)].view.get())) << i;
      EXPECT_TRUE(samePixels(o->Planets[i]->OrbitImage, want[static_cast<std::size_t>(i)].orbit.get())) << i;
    }
    releasePlanetImages(o);
  }
  // Orbit takes the terrain made on entry: the same cells and generator state as a fresh generation.
  auto fresh = std::make_unique<Terrain>();
  generateTerrain(*fresh, o->Planets[3]->Seed);
  smoothTerrain(*fresh);
  const unsigned int afterOrbit = randomState();
  seedRandom(2);
  prepareGameWindow(nullptr, o->Planets[3]);
  EXPECT_EQ(std::memcmp(terrain.cells, fresh->cells, sizeof fresh->cells), 0);
  EXPECT_EQ(randomState(), afterOrbit);
  waitForTerrains();
}
