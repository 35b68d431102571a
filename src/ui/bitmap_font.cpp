#include "ui/bitmap_font.h"
// placeholder
BitmapFont* loadFont(const char*) { return nullptr; }
BitmapFont* fontFromSurface(SDL_Surface*) { return nullptr; }
void freeFont(BitmapFont*) {}
BitmapFont* tintedFont(BitmapFont*, Uint8, Uint8, Uint8) { return nullptr; }
void scanGlyphs(BitmapFont*) {}
void setCurrentFont(BitmapFont*) {}
BitmapFont* currentFont() { return nullptr; }
int fontHeight(const BitmapFont*) { return 0; }
void setFontHeight(BitmapFont*, int) {}
int charWidth(const BitmapFont*, int) { return 0; }
int textWidth(const char*) { return 0; }
int textWidth(const BitmapFont*, const char*) { return 0; }
int putChar(SDL_Surface*, int, int, int) { return 0; }
int putChar(SDL_Surface*, BitmapFont*, int, int, int) { return 0; }
void putString(SDL_Surface*, int, int, const char*) {}
void putString(SDL_Surface*, BitmapFont*, int, int, const char*) {}
void centeredPut(SDL_Surface*, int, const char*) {}
void centeredPut(SDL_Surface*, BitmapFont*, int, const char*) {}
void rightPut(SDL_Surface*, int, const char*) {}
void rightPut(SDL_Surface*, BitmapFont*, int, const char*) {}
void leftPut(SDL_Surface*, int, const char*) {}
void leftPut(SDL_Surface*, BitmapFont*, int, const char*) {}
void justifiedPut(SDL_Surface*, int, const char*) {}
void justifiedPut(SDL_Surface*, BitmapFont*, int, const char*) {}
void printString(SDL_Surface*, int, int, const char*, ...) {}
void printString(SDL_Surface*, BitmapFont*, int, int, const char*, ...) {}
void centeredPrint(SDL_Surface*, int, const char*, ...) {}
void centeredPrint(SDL_Surface*, BitmapFont*, int, const char*, ...) {}
void rightPrint(SDL_Surface*, int, const char*, ...) {}
void rightPrint(SDL_Surface*, BitmapFont*, int, const char*, ...) {}
void leftPrint(SDL_Surface*, int, const char*, ...) {}
void leftPrint(SDL_Surface*, BitmapFont*, int, const char*, ...) {}
void justifiedPrint(SDL_Surface*, int, const char*, ...) {}
void justifiedPrint(SDL_Surface*, BitmapFont*, int, const char*, ...) {}
Uint32 GetPixel(SDL_Surface*, Sint32, Sint32) { return 0; }
void putPixel(SDL_Surface*, int, int, Uint32) {}
