// Whole frames of flight as the loop runs them, headless and without the
// frame-rate delay: in Space with stars in view and in a system of ten
// planets the frame's work should stay under 2 ms (the median), and with the
// star chart open, which looks at all 500 x 500 cells every frame, under 5 ms.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <vector>

#include "base/game_state.h"
#include "base/screen.h"
#include "platform/options.h"
#include "platform/surface_ptr.h"
#include "shell/main_loop.h"
#include "shell/mode_frames.h"
#include "shell/orbit.h"
#include "shell/screen_layout.h"
#include "shell/state_dump.h"
#include "ship/ship.h"
#include "universe/star_map.h"
#include "universe/viewing_tree.h"

namespace {

// Start-up once for every frame benchmark; the map is loaded again if another
// benchmark emptied it.
bool readyToFly() {
  static bool started = false;
  if (!started) {
    startUp(Options{});
    setFrameDelay(false);
    started = true;
  }
  if (!starMap[100][100].object) {
    clearStarMap(starMap);
    loadStarmap(starMap);
    buildViewingTree(starMap);
  }
  gameState.maneuverOn = 0;  // speed and heading stay as each benchmark sets them
  gameState.cargoOpen = gameState.navigationOpen = gameState.configOpen = 0;
  return starMap[100][100].object != nullptr;
}

// Cruising at cell (100, 96) toward the home system four cells away: its star and
// its neighbours are on the view list. The position is put back every frame so the
// ship never arrives.
void cruiseNearHome() {
  gameState.mode = Space;
  gameState.speed = 20;
  gameState.heading = 30;
  gameState.posX = 100 * 50 + 325;
  gameState.posY = 96 * 50 + 325;
  gameState.lastSectorX = 100;
  gameState.lastSectorY = 96;
}

void BM_SpaceFrame(benchmark::State& state) {
  if (!readyToFly()) return state.SkipWithError("Starmap.txt did not load");
  int inView = 0;
  for (const ViewNode* n = starMap[100][96].viewList; n; n = n->next) ++inView;
  for (auto _ : state) {
    cruiseNearHome();
    runFrame();
  }
  state.counters["objects_in_view"] = inView;
}
BENCHMARK(BM_SpaceFrame)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_ChartFrame(benchmark::State& state) {
  if (!readyToFly()) return state.SkipWithError("Starmap.txt did not load");
  for (auto _ : state) {
    cruiseNearHome();
    gameState.navigationOpen = 1;
    runFrame();
  }
  gameState.navigationOpen = 0;
  state.counters["stars_charted"] = starMapCounts.totalStars;
}
BENCHMARK(BM_ChartFrame)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

// A system with all ten lanes taken; every planet gets full-size images of its own.
// All stand below the star, ten cells apart, so the ship between the two inner ones
// has both on the viewscreen.
struct TenPlanetSystem {
  StellarObject object;
  Planet planets[maxPlanets];
  std::vector<SurfacePtr> images;

  TenPlanetSystem() {
    object.x = object.y = 250;
    std::snprintf(object.Class, sizeof object.Class, "G");
    object.NumOfPlanets = maxPlanets;
    for (int i = 0; i < maxPlanets; ++i) {
      planets[i].OrbitAngle = 180;
      planets[i].ViewImage = image(180, 0xFF336699u);
      planets[i].OrbitImage = image(11, 0xFF996633u);
      object.Planets[i] = &planets[i];
    }
  }
  SDL_Surface* image(int size, Uint32 color) {
    const SDL_PixelFormat* f = screen->format;
    SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, size, size, 32, f->Rmask, f->Gmask, f->Bmask, 0);
    SDL_FillRect(s, nullptr, color);
    images.emplace_back(s);
    return s;
  }
};

void BM_SystemFrame(benchmark::State& state) {
  if (!readyToFly()) return state.SkipWithError("Starmap.txt did not load");
  TenPlanetSystem system;
  for (auto _ : state) {
    gameState.mode = System;
    gameState.currentObject = &system.object;
    gameState.speed = 20;
    gameState.heading = 45;
    gameState.sysX = 140 * 50 + 10;  // between lanes 0 and 1, on neither's cell
    gameState.sysY = 146 * 50 + 10;
    runFrame();
  }
  if (gameState.mode != System) state.SkipWithError("the ship left the system");
  for (Planet& p : system.planets) p.ViewImage = p.OrbitImage = nullptr;
  gameState.mode = Space;
  gameState.currentObject = nullptr;
}
BENCHMARK(BM_SystemFrame)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
