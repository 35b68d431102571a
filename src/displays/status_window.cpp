#include "displays/status_window.h"

// The status window arrives with the ship displays.
namespace {
int sweepCounter = 0;
}

void initStatusWindow(SDL_Surface**, FontTable*, Ship*) {}
void drawStatusWindow(SDL_Surface*) {}
void drawGlobeFrame(SDL_Surface*) {}
void drawPlanetLabels(SDL_Surface*) {}
void drawPlanetScan(SDL_Surface*, int, Planet*) {}
void setScanProgress(int value) { sweepCounter = value; }
int scanProgress() { return sweepCounter; }
