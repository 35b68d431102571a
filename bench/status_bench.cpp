// The top right pane in its three looks, as whole frames of the loop: the system
// plan while flying in a system of ten planets, the planet panel in orbit (the
// turning wire globe, the sensor sweep and the labels), and the ship status panel,
// which is rebuilt from nothing every time it is drawn. Each should stay under
// 2 ms (the median) headless and without the frame-rate delay.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <vector>

#include "base/game_state.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "platform/options.h"
#include "platform/surface_ptr.h"
#include "shell/command_window.h"
#include "shell/main_loop.h"
#include "shell/orbit.h"
#include "surface/globe.h"
#include "universe/star_map.h"
#include "universe/viewing_tree.h"

namespace {

// Start-up once for the whole benchmark program (another file may have done it).
bool started() {
  if (!screen) {
    startUp(Options{});
    setFrameDelay(false);
  }
  if (!starMap[100][100].object) {
    clearStarMap(starMap);
    loadStarmap(starMap);
    buildViewingTree(starMap);
  }
  gameState.maneuverOn = 0;
  gameState.cargoOpen = gameState.navigationOpen = gameState.configOpen = 0;
  gameState.showShipStatus = 0;
  return starMap[100][100].object != nullptr;
}

SurfacePtr solid(int size, Uint32 color) {
  const SDL_PixelFormat* f = screen->format;
  SurfacePtr s(SDL_CreateRGBSurface(SDL_SWSURFACE, size, size, 32, f->Rmask, f->Gmask, f->Bmask, 0));
  SDL_FillRect(s.get(), nullptr, color);
  return s;
}

// Every lane taken, icons of the size the planet images give (0.06 of 180 pixels).
struct FullSystem {
  StellarObject object;
  Planet planets[maxPlanets];
  std::vector<SurfacePtr> images;
  FullSystem() {
    object.x = object.y = 250;
    std::snprintf(object.Class, sizeof object.Class, "G");
    object.NumOfPlanets = maxPlanets;
    for (int i = 0; i < maxPlanets; ++i) {
      planets[i].OrbitAngle = 36 * i;
      images.push_back(solid(11, 0xFF996633u));
      planets[i].OrbitImage = images.back().get();
      object.Planets[i] = &planets[i];
    }
  }
};

// Wire-globe stand-ins of the rotated images' size where none were made, so the
// globe's blit is part of the measure; put back afterwards.
struct GlobeStandIns {
  std::vector<SurfacePtr> made;
  GlobeStandIns() {
    for (SDL_Surface*& image : globeImages) {
      if (image) continue;
      made.push_back(solid(116, 0xFF00A000u));
      image = made.back().get();
    }
  }
  ~GlobeStandIns() {
    for (SDL_Surface*& image : globeImages)
      for (const SurfacePtr& m : made)
        if (image == m.get()) image = nullptr;
  }
};

void BM_SystemFrameWithOrbitView(benchmark::State& state) {
  if (!started()) return state.SkipWithError("Starmap.txt did not load");
  FullSystem system;
  for (auto _ : state) {
    gameState.mode = System;
    gameState.currentObject = &system.object;
    gameState.speed = 20;
    gameState.heading = 45;
    gameState.sysX = 200 * 50 + 10;  // clear of every planet's cell
    gameState.sysY = 200 * 50 + 10;
    runFrame();
  }
  if (gameState.mode != System) state.SkipWithError("the ship left the system");
  gameState.mode = Space;
  gameState.currentObject = nullptr;
}
BENCHMARK(BM_SystemFrameWithOrbitView)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

// In orbit round the home system's first planet with Science, Sensors running: the
// sweep is kept going by starting it again whenever a frame completes it.
void BM_OrbitFrameWithGlobeSweepAndLabels(benchmark::State& state) {
  if (!started()) return state.SkipWithError("Starmap.txt did not load");
  StellarObject* home = starMap[100][100].object;
  int lane = 0;
  while (lane < maxPlanets && !home->Planets[lane]) ++lane;
  if (lane == maxPlanets) return state.SkipWithError("the home system has no planet");
  GlobeStandIns globes;
  establishOrbit(home, lane, home->Planets[lane]);
  gameState.mode = Orbit;
  for (auto _ : state) {
    setCurrentMenu(ScienceMenu);
    setCurrentItem(SensorsItem);
    if (!isItemSelected()) toggleItemSelected();
    runFrame();
    drawPlanetLabels(screen);
  }
  if (gameState.mode != Orbit) state.SkipWithError("the ship left orbit");
  if (isItemSelected()) toggleItemSelected();
  gameState.mode = Space;
  gameState.currentObject = nullptr;
}
BENCHMARK(BM_OrbitFrameWithGlobeSweepAndLabels)
    ->Unit(benchmark::kMicrosecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_StatusPanel(benchmark::State& state) {
  if (!started()) return state.SkipWithError("Starmap.txt did not load");
  for (auto _ : state) drawStatusWindow(screen);
}
BENCHMARK(BM_StatusPanel)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
