#pragma once
#include <SDL.h>

struct FontTable;
struct Ship;

void initShipConfig(FontTable* fonts);
void loadLargeShipImage(Ship* ship);
void shipConfigMouseMotion(int x, int y);
void shipConfigMouseDown();
void shipConfigMouseUp();
void drawShipConfig(SDL_Surface* screen);
