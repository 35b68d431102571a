#include "base/message_window.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>

#include "base/screen_updates.h"
#include "platform/surface_ptr.h"
#include "platform/text.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "ui/frames.h"

MessageWindow messageWindow;

namespace {

MessageWindow* theWindow = &messageWindow;
FontTable* windowFonts = nullptr;

constexpr int stripFont = 0;
constexpr int textFont = 2;
constexpr int stripLines = 7;

SurfacePtr blankSurface(int w, int h) { return SurfacePtr(SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, 0, 0, 0, 0)); }

void showOnScreen(SDL_Surface* surface, Sint16 x, Sint16 y) {
  SDL_Surface* screen = logScreen();
  SDL_Rect where{x, y, 0, 0};
  SDL_BlitSurface(surface, nullptr, screen, &where);
  updateWholeScreen(screen, 0);
}

void drawExpanded() {
  SurfacePtr surface = blankSurface(650, 500);
  if (!surface) return;
  drawFadingFrame(surface.get(), 0, 0, 650, 500, 255, 255, 0, 10);
  drawHistoryLines(surface.get(), theWindow->lines, newestShownLine(theWindow->writeIndex), windowFonts);
  showOnScreen(surface.get(), 75, 50);
}

// The strip always shows the newest messages, and copies each of the seven
// newest into the debug log unless it only puts back what was covered.
void drawStrip(bool copyToLog) {
  SurfacePtr surface = blankSurface(790, 80);
  if (!surface) return;
  int index = previousLine(theWindow->writeIndex);
  BitmapFont* font = windowFonts ? windowFonts->fonts[stripFont] : nullptr;
  // The lines are spaced by the ordinary text font's height, though printed in the smaller one.
  const int step = windowFonts ? windowFonts->heights[textFont] : 0;
  setCurrentFont(font);
  int y = 80 - (windowFonts ? windowFonts->heights[stripFont] : 0);
  for (int drawn = 0; drawn < stripLines && theWindow->lines[index][0] != '\0'; ++drawn) {
    if (copyToLog) {
      logMessage(theWindow->lines[index]);
      // Logging may have drawn the log window with another font.
      setCurrentFont(font);
    }
    // A line that would reach above the strip's top edge is left out rather
    // than shown cut: the strip shows the newest lines that fit whole. A glyph
    // sheet draws from its second row, so a line at y >= 0 stays inside.
    if (y >= 0) printString(surface.get(), 0, y, "%s", theWindow->lines[index]);
    y -= step;
    index = previousLine(index);
  }
  if (windowFonts) setCurrentFont(windowFonts->fonts[textFont]);
  showOnScreen(surface.get(), 5, 515);
}

}  // namespace

void initMessageWindow(MessageWindow* window, FontTable* fonts, SDL_Surface* screen) {
  setLogScreen(screen, logFullScreen());
  if (window) theWindow = window;
  windowFonts = fonts;
  theWindow->clear();
  historyScroll = 0;
}

void showMessage(const char* text) {
  theWindow->add(text);
  drawMessageWindow();
}

void showMessagef(const char* format, ...) {
  va_list args;
  va_start(args, format);
  const FormattedText line = formatText(format, args);
  va_end(args);
  showMessage(line.text);
}

void expandMessages() { theWindow->expanded = 1; }
void collapseMessages() { theWindow->expanded = 0; }

void drawMessageWindow() {
  // Messages written before the window is set up are kept and shown later.
  if (!logScreen()) return;
  if (theWindow->expanded == 1) {
    drawExpanded();
  } else {
    drawStrip(true);
  }
}

void redrawMessageStrip() {
  if (logScreen() && theWindow->expanded == 0) drawStrip(false);
}
