// Whole frames with a full-screen window open, headless and without the
// frame-rate delay: the cargo window (44 rows of arrows and amounts, three
// buttons) and the ship configuration window (the schematic, every marker,
// the wrapped description) should each stay under 2 ms (the median).
#include <benchmark/benchmark.h>

#include "base/game_state.h"
#include "base/screen.h"
#include "displays/ship_config.h"
#include "platform/options.h"
#include "shell/main_loop.h"
#include "ship/cargo.h"
#include "ship/ship.h"

namespace {

// The game as it starts, in Space, once for the whole binary: another
// benchmark file may have started it already.
bool startedInSpace() {
  if (!screen) {
    startUp(Options{});
    setFrameDelay(false);
  }
  gameState.mode = Space;
  gameState.maneuverOn = 0;
  gameState.speed = 0;
  gameState.cargoOpen = gameState.navigationOpen = gameState.configOpen = 0;
  return screen != nullptr && playerShip.shipClass[0] != '\0';
}

void BM_CargoWindowFrame(benchmark::State& state) {
  if (!startedInSpace()) return state.SkipWithError("the game did not start");
  // Something in both holds and a selection in each, with an arrow lit.
  const CargoHold savedShip = playerShip.shipHold, savedRover = playerShip.roverHold;
  for (int m = 0; m < holdSlots; ++m) {
    playerShip.shipHold[m] = 9.5f * static_cast<float>(m % 3);
    playerShip.roverHold[m] = 1.25f * static_cast<float>(m % 2);
  }
  cargoMouseMotion(125, 95);
  for (auto _ : state) {
    gameState.cargoOpen = 1;
    cargoWindow.jettisonSelection[ShipsHold][1] = 2.0f;
    runFrame();
  }
  gameState.cargoOpen = 0;
  cargoWindow.jettisonSelection[ShipsHold].fill(0.0f);
  playerShip.shipHold = savedShip;
  playerShip.roverHold = savedRover;
}
BENCHMARK(BM_CargoWindowFrame)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_ShipConfigFrame(benchmark::State& state) {
  if (!startedInSpace()) return state.SkipWithError("the game did not start");
  // The engine selected: rings, fill, leader lines and the engine's description.
  shipConfig.selectedComponent = EngineSelected;
  shipConfigMouseMotion(225, 520);
  for (auto _ : state) {
    gameState.configOpen = 1;
    runFrame();
  }
  gameState.configOpen = 0;
  shipConfig.selectedComponent = ShipSelected;
  state.counters["schematic_loaded"] = shipConfig.largeImage != nullptr;
}
BENCHMARK(BM_ShipConfigFrame)->Unit(benchmark::kMicrosecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
