#pragma once
#include <SDL.h>

#include <cstdint>

// A bitmap font: one glyph sheet holding every glyph side by side and the
// rectangle of each character code on it.
struct BitmapFont {
  int height = 0;
  SDL_Surface* sheet = nullptr;  // owned by the font
  SDL_Rect glyphs[256] = {};
};

BitmapFont* loadFont(const char* imagePath);
BitmapFont* fontFromSurface(SDL_Surface* sheet);  // takes ownership of the sheet
void freeFont(BitmapFont* font);
BitmapFont* tintedFont(BitmapFont* font, Uint8 r, Uint8 g, Uint8 b);
void scanGlyphs(BitmapFont* font);

void setCurrentFont(BitmapFont* font);
BitmapFont* currentFont();
int fontHeight(const BitmapFont* font);
void setFontHeight(BitmapFont* font, int height);
int charWidth(const BitmapFont* font, int c);
int textWidth(const char* text);
int textWidth(const BitmapFont* font, const char* text);

int putChar(SDL_Surface* surface, int x, int y, int c);
int putChar(SDL_Surface* surface, BitmapFont* font, int x, int y, int c);
void putString(SDL_Surface* surface, int x, int y, const char* text);
void putString(SDL_Surface* surface, BitmapFont* font, int x, int y, const char* text);
void centeredPut(SDL_Surface* surface, int y, const char* text);
void centeredPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text);
void rightPut(SDL_Surface* surface, int y, const char* text);
void rightPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text);
void leftPut(SDL_Surface* surface, int y, const char* text);
void leftPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text);
void justifiedPut(SDL_Surface* surface, int y, const char* text);
void justifiedPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text);

#define PROSPECTOR_PRINTF(a, b) __attribute__((format(printf, a, b)))
void printString(SDL_Surface* surface, int x, int y, const char* format, ...) PROSPECTOR_PRINTF(4, 5);
void printString(SDL_Surface* surface, BitmapFont* font, int x, int y, const char* format, ...) PROSPECTOR_PRINTF(5, 6);
void centeredPrint(SDL_Surface* surface, int y, const char* format, ...) PROSPECTOR_PRINTF(3, 4);
void centeredPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) PROSPECTOR_PRINTF(4, 5);
void rightPrint(SDL_Surface* surface, int y, const char* format, ...) PROSPECTOR_PRINTF(3, 4);
void rightPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) PROSPECTOR_PRINTF(4, 5);
void leftPrint(SDL_Surface* surface, int y, const char* format, ...) PROSPECTOR_PRINTF(3, 4);
void leftPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) PROSPECTOR_PRINTF(4, 5);
void justifiedPrint(SDL_Surface* surface, int y, const char* format, ...) PROSPECTOR_PRINTF(3, 4);
void justifiedPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) PROSPECTOR_PRINTF(4, 5);

Uint32 GetPixel(SDL_Surface* surface, Sint32 x, Sint32 y);
void putPixel(SDL_Surface* surface, int x, int y, Uint32 pixel);
