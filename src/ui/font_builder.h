#pragma once
#include <SDL.h>

#include "ui/bitmap_font.h"

constexpr int fontCount = 17;

// The 17 fonts that every window picks from by entry; entry 2 is the ordinary text font.
struct FontTable {
  BitmapFont* fonts[fontCount] = {};
  int heights[fontCount] = {};
};

extern FontTable fontTable;

// The printable ASCII set in code order, position 63 (code 96) holding an apostrophe.
extern const char fontCharacterSet[];

// How one entry of the table is rendered: point size, SDL_ttf style (0 plain,
// 1 bold, 3 bold and italic) and colour.
struct FontLook {
  int size;
  int style;
  Uint8 r, g, b;
};
extern const FontLook fontLooks[fontCount];
// The TrueType file every font is rendered from, in the working directory.
extern const char gameFontPath[];

SDL_Surface* buildFontSheet(const char* path, int style, int size, Uint8 r, Uint8 g, Uint8 b);
// Builds all 17 fonts from "ATX_A.ttf" into the global fontTable and returns it.
FontTable* buildFonts();
