#include "universe/navigation.h"

#include "shell/game_state.h"
// placeholder
ChartCell scanCell;
ChartCell targetCell{390, 280};
int blinkAlpha = 0;
bool blinkRising = true;
void initNavigationWindow(FontTable*) {}
int isNavigationWindowOpen() { return gameState.navigationOpen; }
void navigationMouseMoved(int, int) {}
void navigationMouseDown() {}
void navigationMouseUp(int, int) {}
void moveTargetUp() {}
void moveTargetDown() {}
void moveTargetLeft() {}
void moveTargetRight() {}
int drawNavigationWindow(SDL_Surface*, StarMap&, int, int, int) { return 0; }
void fadingLine(SDL_Surface*, int, int, int, int, Uint8, Uint8, Uint8) {}
