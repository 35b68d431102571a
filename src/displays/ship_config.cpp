#include "displays/ship_config.h"

// The ship configuration window arrives with the ship displays.
void initShipConfig(FontTable*) {}
void loadLargeShipImage(Ship*) {}
void shipConfigMouseMotion(int, int) {}
void shipConfigMouseDown() {}
void shipConfigMouseUp() {}
void drawShipConfig(SDL_Surface*) {}
