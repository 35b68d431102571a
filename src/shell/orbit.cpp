#include "shell/orbit.h"

#include "base/game_state.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "shell/flight.h"
#include "surface/surface_map.h"
#include "universe/planet.h"
#include "universe/star_map.h"

void establishOrbit(StellarObject* object, int lane, Planet* planet) {
  gameState.currentObject = object;
  gameState.currentPlanet = lane;
  gameState.speed = 0;
  gameState.heading = 0;
  gameState.scansTaken = 0;
  prepareGameWindow(screen, planet);
  // The list is empty after leaving orbit; clearing it again keeps a restored
  // game's deposits from being counted twice.
  freeMineralDeposits(gameState.deposits);
  generateMineralDeposits(gameState.deposits, planet);
  setScanProgress(0);
  drawSurfaceMap(screen, planet);
  drawSurfaceLegend(screen, planet);
  drawPlanetLabels(screen);
  resetAnalysisLines();
}

void leaveOrbit() {
  const Planet* planet = currentPlanetRecord();
  int px = 0, py = 0;
  planetCell(gameState.currentPlanet, planet ? planet->OrbitAngle : 0, px, py);
  gameState.sysX = (px + 2) * 50;
  gameState.sysY = (py + 2) * 50;
}
