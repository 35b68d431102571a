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
// The window's two cursors, made once: the square one over an occupied cell, else the crosshair.
// Null where SDL has no mouse cursors (the headless video driver).
SDL_Cursor* navigationCursor(bool square);
// Whether the last drawn frame chose the square cursor.
bool navigationSquareCursorSelected();
// A single-pixel line whose alpha rises from 50 at (x1, y1) to 255 at its end.
void fadingLine(SDL_Surface* surface, int x1, int y1, int x2, int y2, Uint8 red, Uint8 green, Uint8 blue);
