#include "surface/surface_map.h"

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
