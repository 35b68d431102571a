#include "surface/globe.h"

#include <SDL_gfxPrimitives.h>
#include <SDL_rotozoom.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "base/message_window.h"
#include "platform/random.h"
#include "platform/surface_ptr.h"
#include "surface/terrain.h"
#include "surface/terrain_cache.h"
#include "universe/navigation.h"
#include "universe/orbit_view.h"
#include "universe/star_map.h"

int globeRotation = 0;
SDL_Surface* globeImages[globeImageCount] = {};
int orbitAngles[360] = {};
int angleCursor = 0;
Terrain wireGrid;

namespace {

constexpr int half = globeSize / 2;
constexpr int angleCount = 360;
constexpr int orbitSwaps = 36000;
constexpr double orbitIconZoom = 0.06;

// Row r of the disc spans columns 90 - w .. 90 + w - 1. For each pixel the
// longitude offset acos(c / w) / 3.14 * 180 / 2 depends only on the row and
// the column, never on the rotation, so it is worked out once; the rotation's
// shift is added to it per pixel exactly as the direct formula would, and the
// pixels come out identical.
struct GlobeGeometry {
  std::array<int, globeSize> halfWidth{};
  std::array<std::array<double, globeSize>, globeSize> offset{};
  GlobeGeometry() {
    for (int r = 0; r < globeSize; ++r) {
      const double t = std::abs(half - r) / 90.0;
      const int w = static_cast<int>(std::sqrt(1.0 - t * t) * 90.0);
      halfWidth[static_cast<std::size_t>(r)] = w;
      for (int c = -w; c < w; ++c)
        offset[static_cast<std::size_t>(r)][static_cast<std::size_t>(c + half)] =
            std::acos(static_cast<double>(c) / w) / 3.14 * 180.0 / 2.0;
    }
  }
};

const GlobeGeometry& geometry() {
  static const GlobeGeometry g;
  return g;
}

// Zoom of a planet's view image by its surface gravity: heavier worlds look bigger.
double viewZoom(float gravity) {
  if (gravity >= 10) return 1.0;
  if (gravity >= 8) return 0.9;
  if (gravity >= 6) return 0.8;
  if (gravity >= 4) return 0.7;
  if (gravity >= 2) return 0.6;
  return 0.5;
}

std::vector<std::int32_t> planetSeeds(const StellarObject& object) {
  std::vector<std::int32_t> seeds;
  for (const Planet* p : object.Planets)
    if (p) seeds.push_back(p->Seed);
  return seeds;
}

void freeSurface(SDL_Surface*& surface) {
  if (surface) SDL_FreeSurface(surface);
  surface = nullptr;
}

}  // namespace

SDL_Surface* renderGlobe(const Terrain& map, int rotation, const char* sphereName) {
  // Pixels are written as raw 0xAARRGGBB colours, so the surface has that layout.
  SDL_Surface* g = SDL_CreateRGBSurface(SDL_SWSURFACE, globeSize, globeSize, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0);
  if (!g) return nullptr;
  std::array<Uint32, 256> colours{};
  for (int e = 0; e < 256; ++e)
    colours[static_cast<std::size_t>(e)] = planetColor(static_cast<std::uint8_t>(e), sphereName);
  // Rotations outside 0..359 are taken round the circle.
  const int shift = ((rotation % angleCount) + angleCount) % angleCount * 180 / 360;
  const GlobeGeometry& geo = geometry();
  SDL_LockSurface(g);
  for (int r = 0; r < globeSize; ++r) {
    Uint32* row = reinterpret_cast<Uint32*>(static_cast<Uint8*>(g->pixels) + r * g->pitch);
    const int w = geo.halfWidth[static_cast<std::size_t>(r)];
    const auto& offset = geo.offset[static_cast<std::size_t>(r)];
    for (int c = -w; c < w; ++c) {
      const int L = static_cast<int>(shift + offset[static_cast<std::size_t>(c + half)] + 180.0) % 180;
      const int x = 359 - 2 * L;  // odd columns only: two degrees a step across the disc
      row[c + half] = colours[map.cells[x * terrainHeight + r]];
    }
  }
  SDL_UnlockSurface(g);
  return g;
}

void drawSurfaceGlobe(SDL_Surface* screen, const char* hydro) {
  SurfacePtr g(renderGlobe(terrain, globeRotation, hydro));
  if (screen && g) {
    SDL_Rect at{50, 315, 0, 0};
    SDL_BlitSurface(g.get(), nullptr, screen, &at);
  }
  globeRotation = globeRotation >= angleCount - 1 ? 0 : globeRotation + 1;
}

void buildGlobeImages() {
  for (int x = 0; x < terrainWidth; ++x)
    for (int y = 0; y < terrainHeight; ++y)
      wireGrid.cells[x * terrainHeight + y] = ((x + 1) % 20 == 0 || y % 15 == 0) ? 255 : 0;
  for (int i = 0; i < globeImageCount; ++i) {
    SurfacePtr g(renderGlobe(wireGrid, i, "Green"));
    freeSurface(globeImages[i]);
    if (!g) continue;
    circleRGBA(g.get(), 89, 89, 89, 0, 255, 0, 255);
    globeImages[i] = rotozoomSurface(g.get(), 340.0, 0.5, SMOOTHING_ON);
  }
}

void buildOrbitAngles() {
  for (int i = 0; i < angleCount; ++i) orbitAngles[i] = i;
  seedRandom(timeSeed());
  for (int n = 0; n < orbitSwaps; ++n) {
    const int a = nextRandom() % angleCount;
    const int b = nextRandom() % angleCount;
    std::swap(orbitAngles[a], orbitAngles[b]);
  }
}

void buildPlanetImages(StellarObject* object) {
  if (!object) return;
  auto temporary = std::make_unique<Terrain>();
  // Terrains not made on the way here are shared out between this thread and the worker.
  prepareTerrains(planetSeeds(*object));
  for (int i = 0; i < maxPlanets; ++i) {
    angleCursor = angleCursor + 1 >= angleCount ? 0 : angleCursor + 1;
    Planet* p = object->Planets[i];
    if (!p) continue;
    showMessagef("Planet detected at lane: %d", i);
    p->OrbitAngle = orbitAngles[angleCursor];
    smoothedTerrain(*temporary, p->Seed);
    SurfacePtr g(renderGlobe(*temporary, 0, p->Hydro));
    freeSurface(p->OrbitImage);
    freeSurface(p->ViewImage);
    if (!g) continue;
    p->OrbitImage = rotozoomSurface(g.get(), 0, orbitIconZoom, SMOOTHING_OFF);
    p->ViewImage = rotozoomSurface(g.get(), 0, viewZoom(p->Gravity), SMOOTHING_OFF);
  }
  orbitAlpha = 0;
  blinkRising = true;
}

void prepareSystemsNear(int cellX, int cellY) {
  constexpr int reach = 2;
  std::vector<std::int32_t> seeds;
  for (int d = 0; d <= reach; ++d)
    for (int x = cellX - d; x <= cellX + d; ++x)
      for (int y = cellY - d; y <= cellY + d; ++y) {
        const bool onRing = x == cellX - d || x == cellX + d || y == cellY - d || y == cellY + d;
        if (!onRing || x < 0 || y < 0 || x >= starMapSize || y >= starMapSize) continue;
        if (const StellarObject* o = starMap[x][y].object) {
          const std::vector<std::int32_t> more = planetSeeds(*o);
          seeds.insert(seeds.end(), more.begin(), more.end());
        }
      }
  if (!seeds.empty()) prepareTerrains(seeds);
}

void releasePlanetImages(StellarObject* object) {
  if (!object) return;
  for (Planet* p : object->Planets) {
    if (!p) continue;
    freeSurface(p->ViewImage);
    freeSurface(p->OrbitImage);
  }
}
