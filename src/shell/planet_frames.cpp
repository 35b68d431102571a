#include "shell/planet_frames.h"

#include <SDL_gfxPrimitives.h>

#include <algorithm>
#include <cstdio>

#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "shell/command_window.h"
#include "shell/screen_layout.h"
#include "surface/globe.h"
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
    drawCommandWindow(screen);  // Sensors shows as no longer chosen at once
  }
  fillAnalysisLines(planet);
}

// The wire globe's corners are transparent and the sweep draws its lines across
// them: clear the box both use every frame, or old lines pile up behind the globe.
void clearGlobeBox() {
  constexpr int left = 595, top = 120, sweepRight = 704, sweepBottom = 230;
  const SDL_Surface* globe = globeImages[0];
  const int right = std::max(sweepRight, globe ? left + globe->w - 1 : 0);
  const int bottom = std::max(sweepBottom, globe ? top + globe->h - 1 : 0);
  boxRGBA(screen, left, top, static_cast<Sint16>(right), static_cast<Sint16>(bottom), 0, 0, 0, 255);
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
    clearGlobeBox();
    drawGlobeFrame(screen);
    sensorSweepStep(planet);
  } else {
    drawStatusWindow(screen);
  }
}
