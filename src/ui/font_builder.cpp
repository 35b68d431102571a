#include "ui/font_builder.h"
// placeholder
FontTable fontTable;
const char fontCharacterSet[] = "";
SDL_Surface* buildFontSheet(const char*, int, int, Uint8, Uint8, Uint8) { return nullptr; }
FontTable* buildFonts() { return &fontTable; }
