#pragma once
#include <SDL.h>

#include "universe/star_map.h"

struct FontTable;

struct ChartCell {
  int column = 0;
  int row = 0;  // display row: 499 - map row
};
extern ChartCell scanCell;
extern ChartCell targetCell;
extern int blinkAlpha;
extern bool blinkRising;

void initNavigationWindow(FontTable* fonts);
int isNavigationWindowOpen();
void navigationMouseMoved(int x, int y);
void navigationMouseDown();
void navigationMouseUp(int x, int y);
void moveTargetUp();
void moveTargetDown();
void moveTargetLeft();
void moveTargetRight();
int drawNavigationWindow(SDL_Surface* screen, StarMap& map, int column, int row, int topSpeed);
void fadingLine(SDL_Surface* surface, int x1, int y1, int x2, int y2, Uint8 red, Uint8 green, Uint8 blue);
