// The planet surface at full frame rate: the Surface frame (rover view, map,
// coordinates, deposits) and the Orbit frame with the deposits shown, on
// planets of mineral density 100 and 9999 (a deposit on every one of the
// 64,800 cells). Each median should stay under 2 ms. The rover view is also
// measured against the plain walk of the whole deposit list for each of its
// 630 tiles, to show what indexing the deposits by cell buys.
#include <SDL_gfxPrimitives.h>
#include <benchmark/benchmark.h>

#include <cstring>

#include "base/game_state.h"
#include "base/screen.h"
#include "platform/options.h"
#include "platform/random.h"
#include "shell/command_window.h"
#include "shell/main_loop.h"
#include "ship/ship.h"
#include "surface/rover.h"
#include "surface/surface_map.h"
#include "surface/terrain.h"
#include "universe/star_map.h"
#include "universe/viewscreen.h"

namespace {

// A planet of the given density with rolling terrain and its deposits laid out
// as the game lays them out from a seed: one draw per cell, two per deposit.
struct BenchPlanet {
  StellarObject object;
  Planet planet;
  MineralDepositList deposits;

  explicit BenchPlanet(int density) {
    std::strcpy(planet.Hydro, "Water");
    planet.MineralDensity = density;
    object.NumOfPlanets = 1;
    object.Planets[0] = &planet;
    seedRandom(1234);
    for (int x = 0; x < terrainWidth; ++x)
      for (int y = 0; y < terrainHeight; ++y)
        terrain.cells[x * terrainHeight + y] = static_cast<std::uint8_t>((x * 7 + y * 3 + nextRandom() % 9) % 256);
    for (int x = 0; x < terrainWidth; ++x) {
      for (int y = 0; y < terrainHeight; ++y) {
        if (nextRandom() % 10000 > density) continue;
        const auto kind = static_cast<std::uint8_t>(nextRandom() % 22);
        deposits.push_back({x, y, kind, static_cast<float>((nextRandom() % 1000) / 100.0)});
      }
    }
  }
};

void readyToLand() {
  if (!screen) {
    startUp(Options{});
    setFrameDelay(false);
  }
  gameState.maneuverOn = 0;
  gameState.cargoOpen = gameState.navigationOpen = gameState.configOpen = 0;
  gameState.descentRunning = gameState.launchRunning = 0;
  gameState.showShipStatus = 0;
  gameState.speed = 0;
  setCurrentMenu(BridgeMenu);
  setCurrentItem(0);
  if (isItemSelected()) toggleItemSelected();
}

void inOrbitOf(BenchPlanet& p, int mode) {
  gameState.mode = mode;
  gameState.currentObject = &p.object;
  gameState.currentPlanet = 0;
  gameState.scansTaken = 1;
  gameState.deposits = p.deposits;
}

void leavePlanet() {
  gameState.mode = Space;
  gameState.currentObject = nullptr;
  gameState.deposits.clear();
}

void BM_SurfaceFrame(benchmark::State& state) {
  readyToLand();
  BenchPlanet p(static_cast<int>(state.range(0)));
  inOrbitOf(p, Surface);
  for (auto _ : state) {
    roverPosition = SurfacePoint{1805, 905};  // the hold's room keeps collection running
    playerShip.roverHold = {};
    playerShip.roverHoldFree = 50.0f;
    runFrame();
  }
  state.counters["deposits"] = static_cast<double>(p.deposits.size());
  leavePlanet();
}
BENCHMARK(BM_SurfaceFrame)
    ->Arg(100)
    ->Arg(9999)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_OrbitFrameWithDeposits(benchmark::State& state) {
  readyToLand();
  BenchPlanet p(static_cast<int>(state.range(0)));
  inOrbitOf(p, Orbit);
  for (auto _ : state) runFrame();
  state.counters["deposits"] = static_cast<double>(p.deposits.size());
  leavePlanet();
}
BENCHMARK(BM_OrbitFrameWithDeposits)
    ->Arg(100)
    ->Arg(9999)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_SurfaceView(benchmark::State& state) {
  readyToLand();
  BenchPlanet p(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    roverPosition = SurfacePoint{1805, 905};
    drawSurfaceView(screen, &p.planet, 255, 0, 0, 0, p.deposits);
  }
}
BENCHMARK(BM_SurfaceView)
    ->Arg(100)
    ->Arg(9999)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// The rover view done word for word: the whole deposit list walked for each
// tile, the collection test inside the walk. Here only to be compared with.
void literalSurfaceView(SDL_Surface* screen, Planet* planet, MineralDepositList& deposits) {
  SDL_Surface* view = surfaceWorkSurface;
  const int X = roverPosition.x / 10, Y = roverPosition.y / 10, rx = roverPosition.x % 10, ry = roverPosition.y % 10;
  for (int a = 0; a < 30; ++a) {
    for (int b = 0; b < 21; ++b) {
      const int cx = (X + a - 15 + 360) % 360, cy = (Y + b - 10 + 180) % 180;
      const Uint32 shade = planetColor(terrain.cells[cx * 180 + cy], planet->Hydro);
      boxColor(view, 10 * a - rx, 10 * b - ry, 10 * a + 10 - rx, 10 * b + 10 - ry, (shade << 8) | 255);
      for (MineralDeposit& d : deposits) {
        if (d.x == cx && d.y == cy && d.amount != 0) {
          filledCircleColor(view, 10 * a + 5 - rx, 10 * b + 5 - ry, 4, mineralColor(d.kind, 128));
          circleRGBA(view, 10 * a + 5 - rx, 10 * b + 5 - ry, 4, 128, 128, 128, 128);
          circleColor(view, 10 * a + 5 - rx, 10 * b + 5 - ry, 3, mineralColor(d.kind, 255));
        }
        if (d.x == X && d.y == Y && d.amount != 0 && playerShip.roverHoldFree != 0) collectDeposit(d);
      }
    }
  }
  SDL_Rect source = surfaceSourceRect, dest = surfaceDestPoint;
  SDL_BlitSurface(view, &source, screen, &dest);
}

void BM_SurfaceViewLiteralWalk(benchmark::State& state) {
  readyToLand();
  BenchPlanet p(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    roverPosition = SurfacePoint{1805, 905};
    literalSurfaceView(screen, &p.planet, p.deposits);
  }
}
BENCHMARK(BM_SurfaceViewLiteralWalk)
    ->Arg(100)
    ->Arg(9999)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

}  // namespace
