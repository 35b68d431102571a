#include "shell/screen_layout.h"

#include <SDL_gfxPrimitives.h>

#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/ship_config.h"
#include "displays/status_window.h"
#include "shell/command_window.h"
#include "ship/cargo.h"
#include "ship/ship.h"
#include "surface/surface_map.h"
#include "ui/bitmap_font.h"
#include "ui/frames.h"
#include "universe/navigation.h"
#include "universe/orbit_view.h"
#include "universe/star_map.h"
#include "universe/viewscreen.h"

namespace {
constexpr int mapOrigin = 300;
constexpr int cellSize = 50;
}  // namespace

void drawScreenLayout(SDL_Surface* surface) {
  boxRGBA(surface, 0, 0, 800, 600, 0, 0, 0, 255);
  drawFadingFrame(surface, 0, 0, 510, 510, 164, 164, 255, 5);
  drawFadingFrame(surface, 0, 510, 799, 599, 164, 164, 255, 5);
  drawFadingFrame(surface, 510, 0, 799, 255, 164, 164, 255, 5);
  drawFadingFrame(surface, 510, 255, 799, 510, 164, 164, 255, 5);
}

void refreshLayout() {
  drawScreenLayout(screen);
  if (gameState.fullScreen == 1) {
    SDL_Flip(screen);
    drawScreenLayout(screen);
    SDL_Flip(screen);
  }
  redrawCoveredPanes();
}

void redrawCoveredPanes() {
  drawCommandWindow(screen);
  redrawMessageStrip();
  if (gameState.mode != Orbit && gameState.mode != Surface) return;
  if (Planet* planet = currentPlanetRecord()) {
    drawSurfaceLegend(screen, planet);
    drawSurfaceMap(screen, planet);
  }
  drawPlanetLabels(screen);
}

void drawGameViewscreen(bool inSystem) {
  const GameState& g = gameState;
  drawViewscreen(screen, static_cast<int>(g.velX), static_cast<int>(g.velY), g.heading / 5, g.posX - mapOrigin,
                 g.posY - mapOrigin, starMap, inSystem ? g.sysX : 0, inSystem ? g.sysY : 0,
                 inSystem ? g.currentObject : nullptr, inSystem ? 1 : 0, sinTable, cosTable);
}

void redrawAll() {
  drawScreenLayout(screen);
  drawCommandWindow(screen);
  drawMessageWindow();
  switch (gameState.mode) {
    case Space:
      drawGameViewscreen(false);
      drawStatusWindow(screen);
      break;
    case System:
      drawGameViewscreen(true);
      drawOrbitView(screen, gameState.currentObject, sinTable, cosTable, gameState.sysX / cellSize,
                    gameState.sysY / cellSize);
      break;
    case Orbit:
    case Surface:
      if (Planet* planet = currentPlanetRecord()) {
        drawSurfaceLegend(screen, planet);
        drawSurfaceMap(screen, planet);
      }
      drawPlanetLabels(screen);
      break;
    default:
      break;
  }
}

void drawCargoWindow() {
  drawCargoList(screen);
  drawShipHold(screen);
  drawRoverHold(screen);
  gameState.cargoWasShown = 1;
}

int drawOverlayWindow() {
  if (gameState.cargoOpen) {
    drawCargoWindow();
    return 1;
  }
  if (gameState.navigationOpen) {
    drawNavigationWindow(screen, starMap, gameState.sectorX, gameState.sectorY,
                         playerShip.engine.engineClass * speedStep);
    gameState.navigationWasShown = 1;
    return 1;
  }
  if (gameState.configOpen) {
    drawShipConfig(screen);
    gameState.configWasShown = 1;
    return 1;
  }
  return 0;
}

void redrawAfterOverlay() {
  if (gameState.cargoWasShown || gameState.navigationWasShown || gameState.configWasShown) redrawAll();
  gameState.cargoWasShown = gameState.navigationWasShown = gameState.configWasShown = 0;
}

void drawFrameRate() {
  const unsigned int elapsed = SDL_GetTicks() - gameState.frameRateStart;
  if (elapsed > 1000) {
    boxRGBA(screen, 755, 580, 796, 595, 0, 0, 0, 255);
    printString(screen, 755, 580, "%.2f", gameState.framesCounted / (elapsed / 1000.0));
    gameState.frameRateStart = SDL_GetTicks();
    gameState.framesCounted = 0;
  }
}
