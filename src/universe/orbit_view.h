#pragma once
#include <SDL.h>

struct StellarObject;

extern int orbitAlpha;

void drawOrbitView(SDL_Surface* screen, StellarObject* object, const double* sinTable, const double* cosTable,
                   int shipX, int shipY);
