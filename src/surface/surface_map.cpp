#include "surface/surface_map.h"

#include <SDL_gfxPrimitives.h>

#include "base/debug_log.h"
#include "surface/globe.h"
#include "surface/terrain.h"

// The surface map arrives with the planet surface; these keep the site state
// that the game window resets when orbit is established.
SurfacePoint scanCursor;
SurfacePoint landingSite;
SurfacePoint roverPosition;

void drawSurfaceLegend(SDL_Surface*, Planet*) {}
void drawSurfaceMap(SDL_Surface*, Planet*) {}
void drawDeposits(SDL_Surface*, MineralDepositList&) {}
void drawCoordinates(SDL_Surface*) {}
void trackScanCursor(int, int) {}
void selectSite() {}
void moveSite(int) {}

void prepareGameWindow(SDL_Surface* screen, Planet* planet) {
  if (screen) {
    boxRGBA(screen, 5, 5, 505, 505, 0, 0, 0, 255);
    boxRGBA(screen, 515, 5, 795, 250, 0, 0, 0, 255);
  }
  if (planet) {
    generateTerrain(terrain, planet->Seed);
    smoothTerrain(terrain);
  } else {
    logMessage("prepareGameWindow: no planet to generate terrain for");
  }
  globeRotation = 0;
  landingSite = SurfacePoint{180, 90};
  roverPosition = SurfacePoint{1800, 900};
}
