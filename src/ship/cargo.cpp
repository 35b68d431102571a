#include "ship/cargo.h"

// The cargo window arrives with the cargo holds' display.
void initCargoWindow(FontTable*, Ship*) {}
void drawCargoList(SDL_Surface*) {}
void drawShipHold(SDL_Surface*) {}
void drawRoverHold(SDL_Surface*) {}
void cargoMouseMotion(int, int) {}
void cargoMouseDown() {}
void cargoMouseUp() {}
