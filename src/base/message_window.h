#pragma once
#include <SDL.h>

#include "base/debug_log.h"

struct FontTable;

struct MessageWindow : TextRing {
  int expanded = 0;
};

extern MessageWindow messageWindow;

void initMessageWindow(MessageWindow* window, FontTable* fonts, SDL_Surface* screen);
// Texts longer than 99 characters are cut to 99.
void showMessage(const char* text);
void showMessagef(const char* format, ...) __attribute__((format(printf, 1, 2)));
void expandMessages();
void collapseMessages();
void drawMessageWindow();
// Draws the collapsed strip again after something covered or blanked it, without
// copying its lines into the debug log a second time; nothing while expanded.
void redrawMessageStrip();
