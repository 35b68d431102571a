#include "ui/frames.h"
// placeholder
void drawFadingFrame(SDL_Surface*, Sint16, Sint16, Sint16, Sint16, Uint8, Uint8, Uint8, Uint8) {}
void drawGlowFrame(SDL_Surface*, Sint16, Sint16, Sint16, Sint16, Uint8, Uint8, Uint8, Uint8) {}
void drawGlowLine(SDL_Surface*, Sint16, Sint16, Sint16, Sint16, Uint8, Uint8, Uint8, Uint8) {}
