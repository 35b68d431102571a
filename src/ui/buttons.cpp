#include "ui/buttons.h"
// placeholder
void initTextButton(TextButton*, int, int, int, int, const char*) {}
void trackHover(int, int, TextButton*) {}
void pressButton(TextButton*) {}
void releaseButton(TextButton*) {}
int takeClick(TextButton*) { return 0; }
void drawTextButton(SDL_Surface*, TextButton*, FontTable*) {}
