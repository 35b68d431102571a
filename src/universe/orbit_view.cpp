#include "universe/orbit_view.h"

// The orbit view arrives with the planet images.
int orbitAlpha = 0;

void drawOrbitView(SDL_Surface*, StellarObject*, const double*, const double*, int, int) {}
