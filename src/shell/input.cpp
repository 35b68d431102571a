#include "shell/input.h"

#include <cstdlib>

#include "base/debug_log.h"
#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "displays/ship_config.h"
#include "shell/command_window.h"
#include "shell/screen_layout.h"
#include "ship/cargo.h"
#include "ship/ship.h"
#include "surface/surface_map.h"
#include "universe/navigation.h"

namespace {

bool siteSelectionActive() { return isActive(LandingMenu, SelectSiteItem); }

void switchFullScreen() {
  if (gameState.fullScreen == 0) {
    logMessage("Setting full screen mode");
    SDL_Surface* full = SDL_SetVideoMode(800, 600, 32, SDL_FULLSCREEN);
    if (!full) {
      // Keep drawing on the window we have rather than on nothing.
      logMessagef("Couldn't set full screen mode: %s", SDL_GetError());
      return;
    }
    screen = full;
    gameState.fullScreen = 1;
    SDL_Flip(screen);
    setLogScreen(screen, gameState.fullScreen);
    refreshLayout();
  } else {
    logMessage("Setting window mode");
    SDL_WM_ToggleFullScreen(screen);
    drawScreenLayout(screen);
    redrawCoveredPanes();
  }
}

// An arrow goes to the star chart, else to the landing-site cursor, else it is held.
void arrowDown(void (*moveTarget)(), int siteDirection, int& heldFlag) {
  if (isNavigationWindowOpen()) {
    moveTarget();
  } else if (siteSelectionActive()) {
    moveSite(siteDirection);
    gameState.siteClicked = 1;
  } else {
    heldFlag = 1;
  }
}

bool inCommandPane(int x, int y) { return x > 515 && y > 260 && y < 505; }

}  // namespace

bool singleCtrlHeld() {
  const int ctrl = SDL_GetModState() & (KMOD_LCTRL | KMOD_RCTRL);
  return ctrl == KMOD_LCTRL || ctrl == KMOD_RCTRL;
}

void onKeyDown(int key) {
  switch (key) {
    case SDLK_ESCAPE:
      std::exit(0);
    case SDLK_d:
      if (!singleCtrlHeld()) break;
      if (debugLog.visible == 0) {
        showLog();
      } else {
        hideLog();
        refreshLayout();
      }
      break;
    case SDLK_e:
      gameState.configOpen = !gameState.configOpen;
      break;
    case SDLK_f:
      if (singleCtrlHeld()) switchFullScreen();
      break;
    case SDLK_o:
      playerShip.engine.engineClass -= 1;
      break;
    case SDLK_p:
      playerShip.engine.engineClass += 1;
      break;
    case SDLK_r:
      if (!singleCtrlHeld()) break;
      if (gameState.showFrameRate == 0) {
        gameState.showFrameRate = 1;
      } else {
        gameState.showFrameRate = 0;
        refreshLayout();
      }
      break;
    case SDLK_z:
      if (!singleCtrlHeld()) break;
      if (messageWindow.expanded == 0) {
        expandMessages();
      } else {
        collapseMessages();
        refreshLayout();
      }
      break;
    case SDLK_UP:
      arrowDown(moveTargetUp, 1, gameState.upHeld);
      break;
    case SDLK_DOWN:
      arrowDown(moveTargetDown, 3, gameState.downHeld);
      break;
    case SDLK_RIGHT:
      arrowDown(moveTargetRight, 2, gameState.rightHeld);
      break;
    case SDLK_LEFT:
      arrowDown(moveTargetLeft, 0, gameState.leftHeld);
      break;
    default:
      break;
  }
}

void onKeyUp(int key) {
  switch (key) {
    case SDLK_UP:
      gameState.upHeld = 0;
      break;
    case SDLK_DOWN:
      gameState.downHeld = 0;
      break;
    case SDLK_RIGHT:
      gameState.rightHeld = 0;
      break;
    case SDLK_LEFT:
      gameState.leftHeld = 0;
      break;
    default:
      break;
  }
}

void onMouseMotion(int x, int y) {
  navigationMouseMoved(x, y);
  trackScanCursor(x, y);
  cargoMouseMotion(x, y);
  if (x > 515 && y > 260 && y < 505 && gameState.maneuverOn == 0 && gameState.scanRunning == 0 &&
      gameState.descentRunning == 0 && gameState.launchRunning == 0 && !siteSelectionActive()) {
    commandWindowHover(x, y, screen);
  }
  shipConfigMouseMotion(x, y);
  gameState.mouseX = x;
  gameState.mouseY = y;
}

// The press and the release test the position of the last motion event, not their own.
void onMouseButtonDown(int, int) {
  if (gameState.cargoOpen) {
    cargoMouseDown();
  } else if (gameState.navigationOpen) {
    navigationMouseDown();
  } else if (gameState.configOpen) {
    shipConfigMouseDown();
  } else if (gameState.mouseX < 510 && gameState.mouseY < 510) {
    selectSite();
    gameState.siteClicked = 1;
  } else if (inCommandPane(gameState.mouseX, gameState.mouseY)) {
    toggleItemSelected();
    drawCommandWindow(screen);
  }
}

void onMouseButtonUp(int x, int y) {
  if (gameState.cargoOpen) {
    cargoMouseUp();
  } else if (gameState.navigationOpen) {
    navigationMouseUp(x, y);
  } else if (gameState.configOpen) {
    shipConfigMouseUp();
  } else if (inCommandPane(gameState.mouseX, gameState.mouseY)) {
    performMenuAction();
    drawCommandWindow(screen);
  }
}

void dispatchEvent(const SDL_Event& event) {
  switch (event.type) {
    case SDL_KEYDOWN:
      onKeyDown(event.key.keysym.sym);
      break;
    case SDL_KEYUP:
      onKeyUp(event.key.keysym.sym);
      break;
    case SDL_MOUSEMOTION:
      onMouseMotion(event.motion.x, event.motion.y);
      break;
    case SDL_MOUSEBUTTONDOWN:
      onMouseButtonDown(event.button.x, event.button.y);
      break;
    case SDL_MOUSEBUTTONUP:
      onMouseButtonUp(event.button.x, event.button.y);
      break;
    case SDL_QUIT:
      std::exit(0);
    default:
      break;
  }
}
