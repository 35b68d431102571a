#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "shell/command_window.h"
#include "shell/mode_frames.h"
#include "shell/orbit.h"
#include "shell/planet_frames.h"
#include "shell/screen_layout.h"
#include "surface/globe.h"
#include "surface/rover.h"
#include "surface/surface_map.h"
#include "universe/star_map.h"

void runOrbitFrame() {
  if (isActive(NavigatorMenu, ManeuverItem)) {
    leaveOrbit();
    gameState.mode = System;
    gameState.speed = 0;
    freeMineralDeposits(gameState.deposits);
  }
  showAnalysisOnce();
  Planet* planet = currentPlanetRecord();
  if (drawCargoOverlay() || !planet) return;
  drawPlanetPane(*planet);
  if (isActive(LandingMenu, SelectSiteItem)) {
    drawCoordinates(screen);
    if (gameState.siteClicked) {
      drawSurfaceMap(screen, planet);
      gameState.siteClicked = 0;
    }
  }
  if (gameState.descentRunning) {
    drawSurfaceView(screen, planet, 255, 0, 0, 0, gameState.deposits);
    drawLandingSequence(screen, planet, 1, 0, gameState.deposits);
    if (getAltitude() == 0) {
      gameState.descentRunning = 0;
      toggleItemSelected();
      setCurrentMenu(SurfaceMenu);
      setCurrentItem(LaunchItem);
      drawCommandWindow(screen);
      gameState.mode = Surface;
    }
  } else {
    drawSurfaceGlobe(screen, planet->Hydro);
    if (gameState.scansTaken && gameState.mode == Orbit) drawDeposits(screen, gameState.deposits);
  }
}
