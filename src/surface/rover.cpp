#include "surface/rover.h"

// Landing and the rover arrive with the planet surface; the altitude is kept
// so a descent or launch started from the menu waits for them.
namespace {
int altitude = 0;
}

void drawSurfaceView(SDL_Surface*, Planet*, int, int, int, int, MineralDepositList&) {}
void drawLandingSequence(SDL_Surface*, Planet*, int, int, MineralDepositList&) {}
void setAltitude(int a) { altitude = a; }
int getAltitude() { return altitude; }
void transferRoverCargo() {}
