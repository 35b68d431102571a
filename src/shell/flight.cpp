#include "shell/flight.h"

#include "displays/status_window.h"
#include "shell/command_window.h"
#include "shell/game_state.h"
#include "shell/main_loop.h"
#include "shell/message_window.h"
#include "ship/ship.h"
#include "surface/globe.h"
#include "surface/surface_map.h"
#include "universe/orbit_view.h"
#include "universe/star_map.h"
#include "universe/viewscreen.h"

void (*releaseSystemImages)(StellarObject* object) = releasePlanetImages;

namespace {

constexpr int cellSize = 50;
constexpr int mapOrigin = 300;
// Where the Space frame pulls back a ship that flew past the map's last cell.
constexpr int lastCellPosition = 25250;
constexpr int systemLastX = 280;
constexpr int systemLastY = 245;
constexpr int systemTopSpeed = 40;
constexpr int systemSpeedStep = 5;

bool onMap(int x, int y) { return x >= 0 && x < starMapSize && y >= 0 && y < starMapSize; }

// Redraws everything once in the first frame after an overlay window closed.
void redrawAfterOverlay() {
  if (gameState.cargoWasShown || gameState.navigationWasShown || gameState.configWasShown) redrawAll();
  gameState.cargoWasShown = gameState.navigationWasShown = gameState.configWasShown = 0;
}

void enterSystem(StellarObject* object) {
  buildPlanetImages(object);
  gameState.mode = System;
  gameState.speed = 0;
  int ex = 0, ey = 0;
  systemEntryCell(gameState.heading, ex, ey);
  gameState.sysX = ex * cellSize;
  gameState.sysY = ey * cellSize;
  gameState.currentObject = object;
  showMessagef("Class: %s, Ecosphere: %s, Planets: %d", object->Class, object->Eco, object->NumOfPlanets);
}

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

void enterOrbit(int lane, Planet* planet) {
  showMessage("Entering orbit");
  toggleItemSelected();
  gameState.maneuverOn = 0;
  gameState.currentPlanet = lane;
  prepareGameWindow(screen, planet);
  // The list is empty after leaving orbit; clearing it again keeps a restored
  // game's deposits from being counted twice.
  freeMineralDeposits(gameState.deposits);
  generateMineralDeposits(gameState.deposits, planet);
  setScanProgress(0);
  drawSurfaceLegend(screen, planet);
  drawSurfaceMap(screen, planet);
  drawCommandWindow(screen);
  drawPlanetLabels(screen);
  gameState.mode = Orbit;
  gameState.speed = 0;
  gameState.heading = 0;
  gameState.scansTaken = 0;
  resetAnalysisLines();
  showMessage("Orbit established");
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
      enterOrbit(i, planet);
      return;
    }
  }
}

int angleIndex(int degrees) { return ((degrees % 360) + 360) % 360; }

}  // namespace

void runSpaceFrame() {
  GameState& g = gameState;
  g.posX -= static_cast<int>(g.velX);
  if (g.posX < mapOrigin) {
    g.posX = mapOrigin;
    g.velX = 0;
  }
  if (g.sectorX > starMapSize - 1) {
    g.posX = lastCellPosition;
    g.velX = 0;
  }
  g.posY += static_cast<int>(g.velY);
  if (g.posY < mapOrigin) {
    g.posY = mapOrigin;
    g.velY = 0;
  }
  if (g.sectorY > starMapSize - 1) {
    g.posY = lastCellPosition;
    g.velY = 0;
  }

  // In the frame after passing cell 499 the cell lies off the map and holds nothing.
  if ((g.sectorX != g.lastSectorX || g.sectorY != g.lastSectorY) && onMap(g.sectorX, g.sectorY)) {
    if (StellarObject* object = starMap[g.sectorX][g.sectorY].object) enterSystem(object);
  }

  if (drawOverlayWindow() == 0) {
    redrawAfterOverlay();
    drawViewscreen(screen, static_cast<int>(g.velX), static_cast<int>(g.velY), g.heading / 5, g.posX - mapOrigin,
                   g.posY - mapOrigin, starMap, 0, 0, nullptr, 0, sinTable, cosTable);
    drawStatusWindow(screen);
    g.lastSectorX = g.sectorX;
    g.lastSectorY = g.sectorY;
  }
}

void runSystemFrame() {
  GameState& g = gameState;
  g.sysX -= static_cast<int>(g.velX);
  g.sysY += static_cast<int>(g.velY);
  leaveSystemAtEdges();
  if (g.mode == System) captureIntoOrbit();

  if (g.mode == System && drawOverlayWindow() == 0) {
    redrawAfterOverlay();
    drawViewscreen(screen, static_cast<int>(g.velX), static_cast<int>(g.velY), g.heading / 5, g.posX - mapOrigin,
                   g.posY - mapOrigin, starMap, g.sysX, g.sysY, g.currentObject, 1, sinTable, cosTable);
    if (g.showShipStatus == 0) {
      drawOrbitView(screen, g.currentObject, sinTable, cosTable, g.sysX / cellSize, g.sysY / cellSize);
    } else {
      drawStatusWindow(screen);
    }
  }
}

void leaveOrbit() {
  const Planet* planet = currentPlanetRecord();
  int px = 0, py = 0;
  planetCell(gameState.currentPlanet, planet ? planet->OrbitAngle : 0, px, py);
  gameState.sysX = (px + 2) * cellSize;
  gameState.sysY = (py + 2) * cellSize;
}

void applyFlightControls() {
  GameState& g = gameState;
  switch (g.mode) {
    case Space:
      if (g.upHeld) {
        g.speed += speedStep;
        const int topSpeed = playerShip.engine.engineClass * speedStep;
        if (g.speed > topSpeed) g.speed = topSpeed;
      } else {
        g.speed -= speedStep;
      }
      break;
    case System:
      if (g.upHeld) {
        g.speed += systemSpeedStep;
        if (g.speed > systemTopSpeed) g.speed = systemTopSpeed;
      } else {
        g.speed -= systemSpeedStep;
      }
      break;
    case Surface:
      g.speed = g.upHeld ? 4 : 0;
      break;
    default:
      break;
  }
  if (g.speed < 0) g.speed = 0;
  if (g.rightHeld) {
    g.heading -= 5;
    if (g.heading < 0) g.heading = 355;
  }
  if (g.leftHeld) {
    g.heading += 5;
    if (g.heading > 355) g.heading = 0;
  }
}

void systemEntryCell(int heading, int& ex, int& ey) {
  // a is the direction of travel turned round: 5 to 360.
  const int a = 360 - angleIndex(heading);
  struct Entry {
    int below, x, y;
  };
  static constexpr Entry table[] = {
      {15, 140, 2},    {45, 70, 2},     {75, 2, 60},     {105, 2, 122},   {135, 2, 182},  {165, 70, 243},
      {195, 140, 243}, {225, 210, 243}, {255, 278, 182}, {285, 278, 122}, {315, 278, 60}, {345, 210, 2},
  };
  ex = 140;
  ey = 2;  // 345 and above faces the same edge as below 15
  for (const Entry& e : table) {
    if (a < e.below) {
      ex = e.x;
      ey = e.y;
      return;
    }
  }
}

void planetCell(int lane, int orbitAngle, int& px, int& py) {
  const int a = angleIndex(orbitAngle);
  const double s = sinTable[a], c = cosTable[a];
  px = static_cast<int>((10 * lane * s + 140) + 20 * s);
  py = static_cast<int>((122 - 10 * lane * c) - 20 * c);
}
