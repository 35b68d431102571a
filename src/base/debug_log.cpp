#include "base/debug_log.h"

#include <SDL_gfxPrimitives.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "base/screen_updates.h"
#include "platform/text.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "ui/frames.h"

MessageLog debugLog;
int historyScroll = 0;

namespace {

// Shared with the message window: both history windows draw on this screen.
SDL_Surface* sharedScreen = nullptr;
int sharedFullScreen = 0;
MessageLog* theLog = &debugLog;
FontTable* logFonts = nullptr;
bool echo = false;

constexpr int windowWidth = 650;
constexpr int windowHeight = 500;
constexpr int windowX = 75;
constexpr int windowY = 50;
constexpr int textFont = 2;

}  // namespace

const char* TextRing::add(const char* text) {
  char(&line)[logLineLength] = lines[writeIndex];
  copyText(line, text ? text : "");
  writeIndex = writeIndex + 1 == logLineCount ? 0 : writeIndex + 1;
  return line;
}

void TextRing::clear() {
  std::memset(lines, 0, sizeof lines);
  writeIndex = 0;
}

int previousLine(int index) { return index == 0 ? logLineCount - 1 : index - 1; }

int newestShownLine(int writeIndex) {
  const int index = (writeIndex - 1 - historyScroll) % logLineCount;
  return index < 0 ? index + logLineCount : index;
}

void drawHistoryLines(SDL_Surface* surface, const char (*lines)[logLineLength], int index, FontTable* fonts) {
  if (!surface || !fonts) return;
  setCurrentFont(fonts->fonts[textFont]);
  const int step = fonts->heights[textFont];
  int y = 490 - step;
  for (int drawn = 0; drawn < historyLinesShown && lines[index][0] != '\0'; ++drawn) {
    printString(surface, 10, y, "%s", lines[index]);
    y -= step;
    index = previousLine(index);
  }
}

void initLog(MessageLog* log, FontTable* fonts, SDL_Surface* screen, int fullScreen) {
  sharedScreen = screen;
  sharedFullScreen = fullScreen;
  logFonts = fonts;
  if (log) theLog = log;
  theLog->clear();
  historyScroll = 0;
  if (theLog->surface) SDL_FreeSurface(theLog->surface);
  theLog->surface = SDL_CreateRGBSurface(SDL_SWSURFACE, windowWidth, windowHeight, 16, 0, 0, 0, 0);
}

void setLogScreen(SDL_Surface* screen, int fullScreen) {
  sharedScreen = screen;
  sharedFullScreen = fullScreen;
}

SDL_Surface* logScreen() { return sharedScreen; }
int logFullScreen() { return sharedFullScreen; }

void logMessage(const char* text) {
  const char* line = theLog->add(text);
  if (echo) {
    std::printf("%s\n", line);
    std::fflush(stdout);
  }
  if (theLog->visible == 1) drawLog();
}

void logMessagef(const char* format, ...) {
  va_list args;
  va_start(args, format);
  const FormattedText line = formatText(format, args);
  va_end(args);
  logMessage(line.text);
}

void showLog() { theLog->visible = 1; }
void hideLog() { theLog->visible = 0; }

void scrollHistoryBack() {
  historyScroll += 1;
  if (historyScroll > historyScrollMax) historyScroll = historyScrollMax;
}

void scrollHistoryForward() {
  historyScroll -= 1;
  if (historyScroll < 0) historyScroll = 0;
}

void drawLog() {
  SDL_Surface* surface = theLog->surface;
  // Before the window exists (early loading lines) there is nothing to draw on.
  if (!surface || !sharedScreen) return;
  boxRGBA(surface, 0, 0, windowWidth, windowHeight, 0, 0, 0, 255);
  drawFadingFrame(surface, 0, 0, windowWidth, windowHeight, 255, 255, 255, 10);
  drawHistoryLines(surface, theLog->lines, newestShownLine(theLog->writeIndex), logFonts);
  SDL_Rect where{windowX, windowY, 0, 0};
  SDL_BlitSurface(surface, nullptr, sharedScreen, &where);
  updateWholeScreen(sharedScreen, sharedFullScreen);
}

void setLogEcho(bool toStdout) { echo = toStdout; }
