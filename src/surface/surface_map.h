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
