#pragma once
#include <SDL.h>

// The one 800 x 600 x 32 video surface everything is drawn on.
extern SDL_Surface* screen;
// Sine and cosine by whole degree, computed with 3.14 for pi as the game's
// geometry has always used; no entry is exactly 1 (cosTable[0] is 0.999999999).
extern double sinTable[360];
extern double cosTable[360];

void fillTrigTables();
