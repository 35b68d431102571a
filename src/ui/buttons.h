#pragma once
#include <SDL.h>

struct FontTable;

struct TextButton {
  int width = 0;
  int height = 0;
  int x = 0;
  int y = 0;
  int hover = 0;
  int pressed = 0;
  int clicked = 0;
  int dotPhase = 0;
  int dot1X = 0, dot1Y = 0;
  int dot2X = 0, dot2Y = 0;
  char label[32] = {};
};

void initTextButton(TextButton* button, int w, int h, int x, int y, const char* label);
void trackHover(int mouseX, int mouseY, TextButton* button);
void pressButton(TextButton* button);
void releaseButton(TextButton* button);
int takeClick(TextButton* button);
void drawTextButton(SDL_Surface* surface, TextButton* button, FontTable* fonts);
