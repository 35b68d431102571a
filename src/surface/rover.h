#pragma once
#include <SDL.h>

#include "universe/planet.h"

void drawSurfaceView(SDL_Surface* screen, Planet* planet, int alpha, int headingIndex, int dx, int dy,
                     MineralDepositList& deposits);
void drawLandingSequence(SDL_Surface* screen, Planet* planet, int descending, int headingIndex,
                         MineralDepositList& deposits);
void setAltitude(int a);
int getAltitude();
// Moves the rover's hold into the ship's hold at the end of a launch.
void transferRoverCargo();
