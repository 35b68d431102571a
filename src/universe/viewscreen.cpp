#include "universe/viewscreen.h"
// placeholder
SDL_Surface* surfaceWorkSurface = nullptr;
SDL_Rect surfaceSourceRect = {10, 10, 280, 190};
SDL_Rect surfaceDestPoint = {10, 310, 0, 0};
void initGameWindow(SDL_Surface**, FontTable*, Ship*) {}
void prepareGameWindow(SDL_Surface*, Planet*) {}
void drawViewscreen(SDL_Surface*, int, int, int, int, int, StarMap&, int, int, StellarObject*, int, const double*,
                    const double*) {}
