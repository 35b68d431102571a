// The two frames that build a planet: the one in which the ship crosses into a
// system of ten planets (their terrains, globes and images, the messages) and
// the one in which it is captured into orbit (terrain, deposits, map, legend).
// Each must stay within 8 ms of work, whole frames as the loop runs them.
// The entry is measured as a player meets it, after flying in from two cells
// away, which gives the worker thread the approach to make the terrains; the
// cold entry, with nothing made ahead, shows what the two cores do alone.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "base/game_state.h"
#include "base/screen.h"
#include "platform/options.h"
#include "shell/command_window.h"
#include "shell/flight.h"
#include "shell/main_loop.h"
#include "surface/globe.h"
#include "surface/terrain_cache.h"
#include "universe/planet.h"
#include "universe/star_map.h"

namespace {

constexpr int cellSize = 50, mapOrigin = 300;
constexpr int starX = 250, starY = 250;

// A system of ten planets in the star map for as long as the benchmark runs.
struct TenPlanets {
  StellarObject object;
  Planet planets[maxPlanets];
  StellarObject* previous;

  TenPlanets() : previous(starMap[starX][starY].object) {
    object.x = starX;
    object.y = starY;
    std::snprintf(object.Class, sizeof object.Class, "G");
    object.NumOfPlanets = maxPlanets;
    for (int i = 0; i < maxPlanets; ++i) {
      planets[i].Seed = 4100 + 37 * i;
      planets[i].Gravity = static_cast<float>(i) * 1.2f;  // every zoom from 0.5 to 1.0
      planets[i].MineralDensity = 500;
      std::snprintf(planets[i].Hydro, sizeof planets[i].Hydro, "%s", i % 2 ? "Water" : "Green");
      object.Planets[i] = &planets[i];
    }
    starMap[starX][starY].object = &object;
  }
  ~TenPlanets() {
    releasePlanetImages(&object);
    starMap[starX][starY].object = previous;
    for (Planet*& p : object.Planets) p = nullptr;
  }
};

void ready() {
  if (!screen) {
    startUp(Options{});
    setFrameDelay(false);
  }
  gameState.maneuverOn = 0;
  gameState.cargoOpen = gameState.navigationOpen = gameState.configOpen = 0;
  gameState.showShipStatus = 0;
}

// In Space, heading north, inside cell (starX, y) and coming from the cell below it.
void shipInCell(int y) {
  gameState.mode = Space;
  gameState.currentObject = nullptr;
  gameState.heading = 0;
  gameState.speed = 2;
  gameState.posX = starX * cellSize + mapOrigin + 25;
  gameState.posY = y * cellSize + mapOrigin + 1;
  gameState.lastSectorX = starX;
  gameState.lastSectorY = y - 1;
}

void systemEntry(benchmark::State& state, bool approach) {
  ready();
  TenPlanets system;
  for (auto _ : state) {
    state.PauseTiming();
    releasePlanetImages(&system.object);
    forgetTerrains();
    if (approach) {
      shipInCell(starY - 2);  // the star comes within reach of the worker
      runFrame();
      waitForTerrains();  // the approach takes a dozen frames or more
    }
    shipInCell(starY);
    state.ResumeTiming();
    runFrame();
    state.PauseTiming();
    if (gameState.mode != System) state.SkipWithError("the ship did not enter the system");
    waitForTerrains();
    state.ResumeTiming();
  }
  gameState.mode = Space;
  gameState.currentObject = nullptr;
}

void BM_SystemEntryFrame(benchmark::State& state) { systemEntry(state, true); }
BENCHMARK(BM_SystemEntryFrame)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_SystemEntryFrameCold(benchmark::State& state) { systemEntry(state, false); }
BENCHMARK(BM_SystemEntryFrameCold)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

// Standing still on planet 4's cell of the plan: the next frame captures the ship.
void BM_OrbitEntryFrame(benchmark::State& state) {
  ready();
  TenPlanets system;
  shipInCell(starY);
  runFrame();  // entering the system makes its terrains
  waitForTerrains();
  constexpr int lane = 4;
  long deposits = 0;
  for (auto _ : state) {
    state.PauseTiming();
    freeMineralDeposits(gameState.deposits);
    gameState.mode = System;
    gameState.currentObject = &system.object;
    gameState.speed = 0;
    int px = 0, py = 0;
    planetCell(lane, system.planets[lane].OrbitAngle, px, py);
    gameState.sysX = px * cellSize + 25;
    gameState.sysY = py * cellSize + 25;
    state.ResumeTiming();
    runFrame();
    state.PauseTiming();
    if (gameState.mode != Orbit) state.SkipWithError("the ship was not captured");
    deposits = static_cast<long>(gameState.deposits.size());
    state.ResumeTiming();
  }
  state.counters["deposits"] = static_cast<double>(deposits);
  freeMineralDeposits(gameState.deposits);
  gameState.mode = Space;
  gameState.currentObject = nullptr;
}
BENCHMARK(BM_OrbitEntryFrame)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
