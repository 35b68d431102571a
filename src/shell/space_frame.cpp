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
    drawGameViewscreen(false);
    drawStatusWindow(screen);
    g.lastSectorX = g.sectorX;
    g.lastSectorY = g.sectorY;
  }
}
