#include "ship/ship.h"
// placeholder
Ship playerShip;
SDL_Surface* shipImages[shipImageCount] = {};
void loadShip(SDL_Surface**, Ship&, const char*) {}
