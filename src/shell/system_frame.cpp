#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "shell/command_window.h"
#include "shell/flight.h"
#include "shell/mode_frames.h"
#include "shell/orbit.h"
#include "shell/screen_layout.h"
#include "surface/globe.h"
#include "universe/orbit_view.h"
#include "universe/star_map.h"

void (*releaseSystemImages)(StellarObject* object) = releasePlanetImages;

namespace {

constexpr int cellSize = 50;
constexpr int systemLastX = 280;
constexpr int systemLastY = 245;

// Crossing a system's edge puts the ship next to the object on the side it left by.
// At a corner both placements apply and the later one wins, but the planet images
// are released only once.
void leaveSystemAtEdges() {
  const StellarObject* object = gameState.currentObject;
  const int ox = object ? object->x : 0, oy = object ? object->y : 0;
  const int cellX = gameState.sysX / cellSize, cellY = gameState.sysY / cellSize;
  bool left = false;
  auto place = [&](int posX, int posY) {
    if (!left && gameState.currentObject) releaseSystemImages(gameState.currentObject);
    left = true;
    gameState.mode = Space;
    gameState.speed = 0;
    gameState.posX = posX;
    gameState.posY = posY;
  };
  if (cellX > systemLastX) place(ox * cellSize + 350, oy * cellSize + 300);
  if (cellX < 0) place(ox * cellSize + 250, oy * cellSize + 300);
  if (cellY > systemLastY) place(ox * cellSize + 300, oy * cellSize + 350);
  if (cellY < 0) place(ox * cellSize + 300, oy * cellSize + 250);
}

void enterOrbit(StellarObject* object, int lane, Planet* planet) {
  showMessage("Entering orbit");
  toggleItemSelected();
  gameState.maneuverOn = 0;
  establishOrbit(object, lane, planet);
  drawCommandWindow(screen);
  gameState.mode = Orbit;
  showMessage("Orbit established");
  // The star chart or the configuration window was on screen and orbit draws
  // neither: wipe what is left of it and put the panes back.
  if (gameState.navigationWasShown || gameState.configWasShown) {
    drawScreenLayout(screen);
    redrawCoveredPanes();
  }
}

// Only the lowest lane on the ship's cell is entered when two planets share it.
void captureIntoOrbit() {
  StellarObject* object = gameState.currentObject;
  if (!object) return;
  const int cellX = gameState.sysX / cellSize, cellY = gameState.sysY / cellSize;
  for (int i = 0; i < maxPlanets; ++i) {
    Planet* planet = object->Planets[i];
    if (!planet) continue;
    int px = 0, py = 0;
    planetCell(i, planet->OrbitAngle, px, py);
    if (cellX == px && cellY == py) {
      enterOrbit(object, i, planet);
      return;
    }
  }
}

}  // namespace

void runSystemFrame() {
  GameState& g = gameState;
  g.sysX -= static_cast<int>(g.velX);
  g.sysY += static_cast<int>(g.velY);
  leaveSystemAtEdges();
  if (g.mode == System) captureIntoOrbit();

  if (g.mode == System && drawOverlayWindow() == 0) {
    redrawAfterOverlay();
    drawGameViewscreen(true);
    if (g.showShipStatus == 0) {
      drawOrbitView(screen, g.currentObject, sinTable, cosTable, g.sysX / cellSize, g.sysY / cellSize);
    } else {
      drawStatusWindow(screen);
    }
  }
}
