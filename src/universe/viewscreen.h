#pragma once
#include <SDL.h>

#include "universe/star_map.h"

struct FontTable;
struct Ship;

extern SDL_Surface* surfaceWorkSurface;
extern SDL_Rect surfaceSourceRect;  // x 10, y 10, 280 x 190
extern SDL_Rect surfaceDestPoint;   // (10, 310)

// Where the viewscreen finds a class's star image: starImage, unless a test swaps in its own.
extern SDL_Surface* (*viewscreenStarImage)(const char* classText);

void initGameWindow(SDL_Surface** shipImages, FontTable* fonts, Ship* ship);
void drawViewscreen(SDL_Surface* screen, int velocityX, int velocityY, int shipImageIndex, int offsetX, int offsetY,
                    StarMap& map, int systemX, int systemY, StellarObject* object, int inSystem, const double* sinTable,
                    const double* cosTable);
