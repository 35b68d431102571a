// Planet surfaces and globes. Entering a system builds every planet's terrain,
// globe and two zooms in one frame: a ten-planet system must fit in 33 ms. The
// orbited planet's globe is rendered anew every orbit frame and must stay
// under 1 ms. Deposits are generated once per orbit.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

#include "base/debug_log.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "platform/surface_ptr.h"
#include "surface/globe.h"
#include "surface/terrain.h"
#include "surface/terrain_cache.h"
#include "ui/font_builder.h"
#include "universe/planet.h"
#include "universe/star_map.h"

namespace {

// The screen and the message window that buildPlanetImages reports to.
bool screenReady() {
  if (screen) return true;
  if (SDL_Init(SDL_INIT_VIDEO) < 0) return false;
  screen = SDL_SetVideoMode(800, 600, 32, 0);
  if (!screen) return false;
  fillTrigTables();
  buildFonts();
  initLog(&debugLog, &fontTable, screen, 0);
  initMessageWindow(&messageWindow, &fontTable, screen);
  return true;
}

void BM_GenerateAndSmoothTerrain(benchmark::State& state) {
  auto map = std::make_unique<Terrain>();
  for (auto _ : state) {
    generateTerrain(*map, 73415);
    smoothTerrain(*map);
    benchmark::DoNotOptimize(map->cells[0]);
  }
}
BENCHMARK(BM_GenerateAndSmoothTerrain)->Unit(benchmark::kMillisecond);

// The two halves on their own.
void BM_GenerateTerrain(benchmark::State& state) {
  auto map = std::make_unique<Terrain>();
  for (auto _ : state) generateTerrain(*map, 73415);
}
BENCHMARK(BM_GenerateTerrain)->Unit(benchmark::kMicrosecond);

void BM_SmoothTerrain(benchmark::State& state) {
  auto map = std::make_unique<Terrain>();
  generateTerrain(*map, 73415);
  for (auto _ : state) smoothTerrain(*map);
}
BENCHMARK(BM_SmoothTerrain)->Unit(benchmark::kMicrosecond);

void BM_RenderGlobe(benchmark::State& state) {
  auto map = std::make_unique<Terrain>();
  generateTerrain(*map, 1138);
  smoothTerrain(*map);
  int rotation = 0;
  for (auto _ : state) {
    SurfacePtr g(renderGlobe(*map, rotation, "Water"));
    benchmark::DoNotOptimize(g.get());
    rotation = (rotation + 1) % 360;
  }
}
BENCHMARK(BM_RenderGlobe)->Unit(benchmark::kMicrosecond);

// The orbit frame's globe: render, copy to the screen, free.
void BM_DrawSurfaceGlobe(benchmark::State& state) {
  if (!screenReady()) return state.SkipWithError("no screen");
  generateTerrain(terrain, 1138);
  smoothTerrain(terrain);
  for (auto _ : state) drawSurfaceGlobe(screen, "Water");
}
BENCHMARK(BM_DrawSurfaceGlobe)->Unit(benchmark::kMicrosecond);

void BM_BuildPlanetImagesTenPlanets(benchmark::State& state) {
  if (!screenReady()) return state.SkipWithError("no screen");
  StellarObject system;
  Planet planets[maxPlanets];
  for (int i = 0; i < maxPlanets; ++i) {
    planets[i].Seed = 1000 + i;
    planets[i].Gravity = float(i) * 1.2f;  // every zoom from 0.5 to 1.0
    std::snprintf(planets[i].Hydro, sizeof planets[i].Hydro, "%s", "Water");
    system.Planets[i] = &planets[i];
  }
  for (auto _ : state) {
    buildPlanetImages(&system);
    state.PauseTiming();
    releasePlanetImages(&system);
    forgetTerrains();  // every build starts from nothing made ahead
    state.ResumeTiming();
  }
}
BENCHMARK(BM_BuildPlanetImagesTenPlanets)->Unit(benchmark::kMillisecond);

void BM_GenerateMineralDeposits(benchmark::State& state) {
  Planet p;
  p.Seed = 262144;
  p.MineralDensity = static_cast<int>(state.range(0));
  std::snprintf(p.Litho[0], sizeof p.Litho[0], "%s", "Gold");
  MineralDepositList deposits;
  for (auto _ : state) {
    freeMineralDeposits(deposits);
    benchmark::DoNotOptimize(generateMineralDeposits(deposits, &p));
  }
  state.counters["deposits"] = static_cast<double>(deposits.size());
}
BENCHMARK(BM_GenerateMineralDeposits)->Arg(100)->Arg(9999)->Unit(benchmark::kMicrosecond);

}  // namespace
