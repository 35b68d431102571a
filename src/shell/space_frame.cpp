#include <SDL.h>

#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "shell/flight.h"
#include "shell/mode_frames.h"
#include "shell/screen_layout.h"
#include "surface/globe.h"
#include "universe/star_map.h"

namespace {

constexpr int cellSize = 50;
constexpr int mapOrigin = 300;
// Where the Space frame pulls back a ship that flew past the map's last cell.
constexpr int lastCellPosition = 25250;

bool onMap(int x, int y) { return x >= 0 && x < starMapSize && y >= 0 && y < starMapSize; }

// Holds one axis of the ship on the map: at the first cell's edge, or back at
// the last cell once the cell from before the step lies past it.
void keepOnMap(int& position, double& velocity, int cell) {
  if (position < mapOrigin) {
    position = mapOrigin;
    velocity = 0;
  }
  if (cell > starMapSize - 1) {
    position = lastCellPosition;
    velocity = 0;
  }
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

}  // namespace

void runSpaceFrame() {
  GameState& g = gameState;
  g.posX -= static_cast<int>(g.velX);
  keepOnMap(g.posX, g.velX, g.sectorX);
  g.posY += static_cast<int>(g.velY);
  keepOnMap(g.posY, g.velY, g.sectorY);

  if (g.sectorX != g.lastSectorX || g.sectorY != g.lastSectorY) prepareSystemsNear(g.sectorX, g.sectorY);
  // In the frame after passing cell 499 the cell lies off the map and holds nothing.
  if ((g.sectorX != g.lastSectorX || g.sectorY != g.lastSectorY) && onMap(g.sectorX, g.sectorY)) {
    if (StellarObject* object = starMap[g.sectorX][g.sectorY].object) enterSystem(object);
  }

  if (drawOverlayWindow() == 0) {
    redrawAfterOverlay();
    drawGameViewscreen(false);
    drawStatusWindow(screen);
    g.lastSectorX = g.sectorX;
    g.lastSectorY = g.sectorY;
  }
}
