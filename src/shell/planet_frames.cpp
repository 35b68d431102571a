#include "shell/planet_frames.h"

#include <cstdio>

#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "shell/command_window.h"
#include "shell/screen_layout.h"
#include "surface/surface_map.h"
#include "universe/planet.h"

namespace {

void fillAnalysisLines(const Planet& p) {
  auto& lines = gameState.analysisLines;
  std::snprintf(lines[0], sizeof lines[0], "Atmosphere: %s, %s, %s", p.Atmos[0], p.Atmos[1], p.Atmos[2]);
  std::snprintf(lines[1], sizeof lines[1], "Hydrosphere: %s", p.Hydro);
  std::snprintf(lines[2], sizeof lines[2], "Lithosphere: %s, %s, %s", p.Litho[0], p.Litho[1], p.Litho[2]);
  std::snprintf(lines[3], sizeof lines[3], "Global Weather: %s", p.Weather);
}

// Science, Sensors: one frame of the sweep over the globe.
void sensorSweepStep(Planet& planet) {
  if (!isActive(ScienceMenu, SensorsItem)) return;
  drawPlanetScan(screen, gameState.currentPlanet, &planet);
  drawSurfaceMap(screen, &planet);
  gameState.scanRunning = 1;
  if (scanProgress() == 0) {
    drawDeposits(screen, gameState.deposits);
    gameState.scansTaken = 1;
    gameState.scanRunning = 0;
    toggleItemSelected();
  }
  fillAnalysisLines(planet);
}

}  // namespace

void showAnalysisOnce() {
  if (!isActive(ScienceMenu, AnalysisItem)) return;
  for (const auto& line : gameState.analysisLines) showMessage(line);
  toggleItemSelected();
}

bool drawCargoOverlay() {
  if (gameState.cargoOpen) {
    drawCargoWindow();
    return true;
  }
  if (gameState.cargoWasShown) redrawAll();
  gameState.cargoWasShown = 0;
  return false;
}

void drawPlanetPane(Planet& planet) {
  if (gameState.showShipStatus == 0) {
    drawGlobeFrame(screen);
    sensorSweepStep(planet);
  } else {
    drawStatusWindow(screen);
  }
}
