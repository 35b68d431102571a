#include "base/game_state.h"
#include "base/screen.h"
#include "shell/command_window.h"
#include "shell/mode_frames.h"
#include "shell/planet_frames.h"
#include "shell/screen_layout.h"
#include "surface/rover.h"
#include "surface/surface_map.h"
#include "universe/star_map.h"

void runSurfaceFrame() {
  Planet* planet = currentPlanetRecord();
  if (drawCargoOverlay() || !planet) return;
  drawPlanetPane(*planet);
  showAnalysisOnce();
  const int headingIndex = gameState.heading / 5;
  if (gameState.launchRunning) {
    drawSurfaceView(screen, planet, 255, headingIndex, 0, 0, gameState.deposits);
    drawLandingSequence(screen, planet, 0, headingIndex, gameState.deposits);
    if (getAltitude() == 255) {
      transferRoverCargo();
      gameState.launchRunning = 0;
      toggleItemSelected();
      setCurrentMenu(OrbitMenu);
      setCurrentItem(LandItem);
      gameState.mode = Orbit;
      redrawAll();
    }
  } else {
    drawSurfaceView(screen, planet, 255, headingIndex, static_cast<int>(gameState.velX),
                    static_cast<int>(gameState.velY), gameState.deposits);
    drawCoordinates(screen);
    drawSurfaceMap(screen, planet);
    if (gameState.scansTaken) drawDeposits(screen, gameState.deposits);
  }
}
