#pragma once
#include <SDL.h>

#include "universe/planet.h"

struct SurfacePoint {
  int x = 0;
  int y = 0;
};
extern SurfacePoint scanCursor;
extern SurfacePoint landingSite;
extern SurfacePoint roverPosition;

void drawSurfaceLegend(SDL_Surface* screen, Planet* planet);
void drawSurfaceMap(SDL_Surface* screen, Planet* planet);
void drawDeposits(SDL_Surface* screen, MineralDepositList& deposits);
void drawCoordinates(SDL_Surface* screen);
void trackScanCursor(int mouseX, int mouseY);
void selectSite();
void moveSite(int direction);

// Sets the game window up for a planet arriving in orbit: clears the viewscreen
// and top right panes, generates and smooths the planet's terrain from its
// seed, turns the globe back to 0 and puts the site and rover at the map centre.
void prepareGameWindow(SDL_Surface* screen, Planet* planet);
