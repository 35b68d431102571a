#include "ui/bitmap_font.h"

#include <SDL_image.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

BitmapFont* current = nullptr;

// Every formatted print goes through this one buffer; text past its last byte is cut.
char printBuffer[1024];

// The colour key flag as the video library numbers it.
constexpr Uint32 sourceColorKey = 0x1000;

// Sheets are locked once around a whole pass over their pixels, never per pixel.
class SurfaceLock {
 public:
  explicit SurfaceLock(SDL_Surface* surface) : surface_(surface) {
    if (surface_ && SDL_MUSTLOCK(surface_) && SDL_LockSurface(surface_) == 0) locked_ = true;
  }
  ~SurfaceLock() { unlock(); }
  void unlock() {
    if (locked_) SDL_UnlockSurface(surface_);
    locked_ = false;
  }
  SurfaceLock(const SurfaceLock&) = delete;
  SurfaceLock& operator=(const SurfaceLock&) = delete;

 private:
  SDL_Surface* surface_;
  bool locked_ = false;
};

// Takes over a sheet: all rectangles zero, glyphs scanned, the font made current.
BitmapFont* adoptSheet(BitmapFont* font, SDL_Surface* sheet) {
  font->sheet = sheet;
  std::memset(font->glyphs, 0, sizeof font->glyphs);
  scanGlyphs(font);
  setCurrentFont(font);
  return font;
}

int targetWidth(const SDL_Surface* surface) { return surface ? surface->w : 0; }

// The print family: format into the shared buffer, cut at its last byte.
void formatInto(const char* format, va_list args) {
  std::vsnprintf(printBuffer, sizeof printBuffer, format ? format : "", args);
  printBuffer[sizeof printBuffer - 1] = '\0';
}

}  // namespace

BitmapFont* loadFont(const char* imagePath) {
  if (!imagePath) return nullptr;
  BitmapFont* font = new (std::nothrow) BitmapFont;
  if (!font) return nullptr;
  SDL_Surface* sheet = IMG_Load(imagePath);
  if (!sheet) {
    delete font;
    return nullptr;
  }
  return adoptSheet(font, sheet);
}

BitmapFont* fontFromSurface(SDL_Surface* sheet) {
  if (!sheet) return nullptr;
  BitmapFont* font = new (std::nothrow) BitmapFont;
  if (!font) return nullptr;
  return adoptSheet(font, sheet);
}

void freeFont(BitmapFont* font) {
  if (!font) return;
  // Never leave the module drawing with a font that is gone.
  if (current == font) current = nullptr;
  if (font->sheet) SDL_FreeSurface(font->sheet);
  delete font;
}

BitmapFont* tintedFont(BitmapFont* font, Uint8 r, Uint8 g, Uint8 b) {
  if (!font) return nullptr;
  BitmapFont* tinted = new (std::nothrow) BitmapFont;
  if (!tinted) return nullptr;
  tinted->height = font->height;
  std::memcpy(tinted->glyphs, font->glyphs, sizeof tinted->glyphs);
  if (!font->sheet) return tinted;
  SDL_Surface* sheet = SDL_ConvertSurface(font->sheet, font->sheet->format, font->sheet->flags);
  if (!sheet) return tinted;
  tinted->sheet = sheet;

  SurfaceLock lockOld(font->sheet);
  SurfaceLock lockNew(sheet);
  const Uint32 key = GetPixel(sheet, 0, sheet->h - 1);
  std::fputs("looking...\n", stdout);
  const int w = font->sheet->w < sheet->w ? font->sheet->w : sheet->w;
  const int h = font->sheet->h < sheet->h ? font->sheet->h : sheet->h;
  for (int x = 0; x < w; ++x) {
    for (int y = 0; y < h; ++y) {
      const Uint32 p = GetPixel(font->sheet, x, y);
      if (p == key) continue;
      Uint8 pr, pg, pb;
      SDL_GetRGB(p, sheet->format, &pr, &pg, &pb);
      putPixel(sheet, x, y, SDL_MapRGB(sheet->format, pr * r / 255, pg * g / 255, pb * b / 255));
    }
  }
  std::fputs("unlooking...\n", stdout);
  lockNew.unlock();
  lockOld.unlock();
  SDL_SetColorKey(sheet, sourceColorKey, key);
  return tinted;
}

void scanGlyphs(BitmapFont* font) {
  if (!font || !font->sheet) {
    std::fputs("BFont: The font has not been loaded!\n", stderr);
    std::exit(1);
  }
  SDL_Surface* sheet = font->sheet;
  const Uint32 separator = GetPixel(sheet, 0, 0);
  {
    SurfaceLock lock(sheet);
    const int w = sheet->w;
    int code = 33;
    int x = 0;
    while (x < w - 1) {
      if (GetPixel(sheet, x, 0) == separator) {
        ++x;
        continue;
      }
      const int start = x;
      while (x < w && GetPixel(sheet, x, 0) != separator) ++x;
      if (code <= 255) {
        SDL_Rect& glyph = font->glyphs[code];
        glyph.x = static_cast<Sint16>(start);
        glyph.y = 1;
        glyph.w = static_cast<Uint16>(x - start);
        glyph.h = static_cast<Uint16>(sheet->h);
      }
      ++code;
    }
    font->glyphs[32] = SDL_Rect{0, 0, font->glyphs[33].w, static_cast<Uint16>(sheet->h)};
  }
  font->height = sheet->h;
  SDL_SetColorKey(sheet, sourceColorKey, GetPixel(sheet, 0, font->height - 1));
}

void setCurrentFont(BitmapFont* font) { current = font; }
BitmapFont* currentFont() { return current; }
int fontHeight(const BitmapFont* font) { return font ? font->height : 0; }
void setFontHeight(BitmapFont* font, int height) {
  if (font) font->height = height;
}

int charWidth(const BitmapFont* font, int c) { return font ? font->glyphs[static_cast<unsigned char>(c)].w : 0; }

int textWidth(const char* text) { return textWidth(current, text); }
int textWidth(const BitmapFont* font, const char* text) {
  if (!font || !text) return 0;
  int width = 0;
  for (const char* p = text; *p; ++p) width += charWidth(font, *p);
  return width;
}

int putChar(SDL_Surface* surface, int x, int y, int c) { return putChar(surface, current, x, y, c); }
int putChar(SDL_Surface* surface, BitmapFont* font, int x, int y, int c) {
  if (!font) return 0;
  const unsigned char code = static_cast<unsigned char>(c);
  if (code == ' ') return font->glyphs[32].w;
  if (!surface || !font->sheet) return 0;
  SDL_Rect source = font->glyphs[code];
  SDL_Rect destination{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
  // An empty glyph draws nothing and does not move the pen.
  if (source.w == 0 || source.h == 0) return 0;
  SDL_UpperBlit(font->sheet, &source, surface, &destination);
  return destination.w;
}

void putString(SDL_Surface* surface, int x, int y, const char* text) { putString(surface, current, x, y, text); }
void putString(SDL_Surface* surface, BitmapFont* font, int x, int y, const char* text) {
  if (!font || !text) return;
  for (const char* p = text; *p; ++p) x += putChar(surface, font, x, y, *p);
}

void centeredPut(SDL_Surface* surface, int y, const char* text) { centeredPut(surface, current, y, text); }
void centeredPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text) {
  if (!font || !text) return;
  putString(surface, font, targetWidth(surface) / 2 - textWidth(font, text) / 2, y, text);
}

void rightPut(SDL_Surface* surface, int y, const char* text) { rightPut(surface, current, y, text); }
void rightPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text) {
  if (!font || !text) return;
  putString(surface, font, targetWidth(surface) - textWidth(font, text) - 1, y, text);
}

void leftPut(SDL_Surface* surface, int y, const char* text) { leftPut(surface, current, y, text); }
void leftPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text) { putString(surface, font, 0, y, text); }

void justifiedPut(SDL_Surface* surface, int y, const char* text) { justifiedPut(surface, current, y, text); }
void justifiedPut(SDL_Surface* surface, BitmapFont* font, int y, const char* text) {
  if (!font || !text) return;
  int spaces = 0;
  for (const char* p = text; *p; ++p) spaces += *p == ' ';
  const int gap = (targetWidth(surface) - 1) - textWidth(font, text);
  if (spaces == 0 || gap <= 0) {
    putString(surface, font, 0, y, text);
    return;
  }
  int extra = gap % spaces;
  const int share = (gap - extra) / spaces;
  const int spaceWidth = charWidth(font, ' ');
  // Words are drawn through a copy of the text so the caller's string is never touched.
  char word[1024];
  int x = 0;
  const char* start = text;
  for (const char* p = text;; ++p) {
    if (*p != ' ' && *p != '\0') continue;
    const std::size_t length = static_cast<std::size_t>(p - start);
    const std::size_t kept = length < sizeof word - 1 ? length : sizeof word - 1;
    std::memcpy(word, start, kept);
    word[kept] = '\0';
    putString(surface, font, x, y, word);
    if (*p == '\0') break;
    x += textWidth(font, word) + share + spaceWidth;
    if (extra >= 0) {
      x += 1;
      extra -= 1;
    }
    start = p + 1;
  }
}

#define PROSPECTOR_PRINT_CURRENT(put, ...) \
  do {                                     \
    va_list args;                          \
    va_start(args, format);                \
    formatInto(format, args);              \
    va_end(args);                          \
    put(surface, current, __VA_ARGS__);    \
  } while (0)
#define PROSPECTOR_PRINT_WITH(put, ...) \
  do {                                  \
    va_list args;                       \
    va_start(args, format);             \
    formatInto(format, args);           \
    va_end(args);                       \
    put(surface, font, __VA_ARGS__);    \
  } while (0)

void printString(SDL_Surface* surface, int x, int y, const char* format, ...) {
  PROSPECTOR_PRINT_CURRENT(putString, x, y, printBuffer);
}
void printString(SDL_Surface* surface, BitmapFont* font, int x, int y, const char* format, ...) {
  PROSPECTOR_PRINT_WITH(putString, x, y, printBuffer);
}
void centeredPrint(SDL_Surface* surface, int y, const char* format, ...) {
  PROSPECTOR_PRINT_CURRENT(centeredPut, y, printBuffer);
}
void centeredPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) {
  PROSPECTOR_PRINT_WITH(centeredPut, y, printBuffer);
}
void rightPrint(SDL_Surface* surface, int y, const char* format, ...) {
  PROSPECTOR_PRINT_CURRENT(rightPut, y, printBuffer);
}
void rightPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) {
  PROSPECTOR_PRINT_WITH(rightPut, y, printBuffer);
}
void leftPrint(SDL_Surface* surface, int y, const char* format, ...) {
  PROSPECTOR_PRINT_CURRENT(leftPut, y, printBuffer);
}
void leftPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) {
  PROSPECTOR_PRINT_WITH(leftPut, y, printBuffer);
}
void justifiedPrint(SDL_Surface* surface, int y, const char* format, ...) {
  PROSPECTOR_PRINT_CURRENT(justifiedPut, y, printBuffer);
}
void justifiedPrint(SDL_Surface* surface, BitmapFont* font, int y, const char* format, ...) {
  PROSPECTOR_PRINT_WITH(justifiedPut, y, printBuffer);
}

Uint32 GetPixel(SDL_Surface* surface, Sint32 x, Sint32 y) {
  if (!surface) return 0;
  if (x < 0) {
    std::puts("x too small in GetPixel!");
    return 0;
  }
  if (x >= surface->w) {
    std::puts("x too big in GetPixel!");
    return 0;
  }
  // Rows are not reported, but a row off the surface is never read.
  if (y < 0 || y >= surface->h || !surface->pixels) return 0;
  const int bpp = surface->format->BytesPerPixel;
  const Uint8* p = static_cast<const Uint8*>(surface->pixels) + y * surface->pitch + x * bpp;
  switch (bpp) {
    case 1:
      return *p;
    case 2: {
      Uint16 value;
      std::memcpy(&value, p, sizeof value);
      return value;
    }
    case 3: {
      const SDL_PixelFormat* f = surface->format;
      return SDL_MapRGB(surface->format, p[f->Rshift / 8], p[f->Gshift / 8], p[f->Bshift / 8]);
    }
    case 4: {
      Uint32 value;
      std::memcpy(&value, p, sizeof value);
      return value;
    }
    default:
      return 0xFFFFFFFF;
  }
}

void putPixel(SDL_Surface* surface, int x, int y, Uint32 pixel) {
  // Callers stay on the surface; a stray coordinate is dropped rather than written past it.
  if (!surface || !surface->pixels || x < 0 || y < 0 || x >= surface->w || y >= surface->h) return;
  const int bpp = surface->format->BytesPerPixel;
  Uint8* p = static_cast<Uint8*>(surface->pixels) + y * surface->pitch + x * bpp;
  switch (bpp) {
    case 1:
      *p = static_cast<Uint8>(pixel);
      break;
    case 2: {
      const Uint16 value = static_cast<Uint16>(pixel);
      std::memcpy(p, &value, sizeof value);
      break;
    }
    case 3:
      p[0] = static_cast<Uint8>(pixel);
      p[1] = static_cast<Uint8>(pixel >> 8);
      p[2] = static_cast<Uint8>(pixel >> 16);
      break;
    case 4:
      std::memcpy(p, &pixel, sizeof pixel);
      break;
    default:
      break;
  }
}
