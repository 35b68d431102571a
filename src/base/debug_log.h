#pragma once
#include <SDL.h>

struct FontTable;

constexpr int logLineCount = 1000;
constexpr int logLineLength = 100;  // 99 characters and the terminator
constexpr int historyLinesShown = 34;
constexpr int historyScrollMax = logLineCount - historyLinesShown;  // 966

// The last 1000 lines of a history, oldest overwritten first: the debug log
// and the player's messages are both kept this way.
struct TextRing {
  char lines[logLineCount][logLineLength] = {};
  int writeIndex = 0;

  // Stores `text` (cut to 99 characters; null reads as empty) at the write
  // index and moves it on, wrapping from 999 to 0. Returns the stored line.
  const char* add(const char* text);
  // Empties every line and starts writing at 0 again.
  void clear();
};

struct MessageLog : TextRing {
  int visible = 0;
  SDL_Surface* surface = nullptr;  // 650 x 500, 16 bits, made once
};

extern MessageLog debugLog;
// How far the shown history window is scrolled back; shared by the log and message windows.
extern int historyScroll;

void initLog(MessageLog* log, FontTable* fonts, SDL_Surface* screen, int fullScreen);
void setLogScreen(SDL_Surface* screen, int fullScreen);
// The screen the log and message windows draw on, and whether it is full screen.
SDL_Surface* logScreen();
int logFullScreen();
// Texts longer than 99 characters are cut to 99.
void logMessage(const char* text);
void logMessagef(const char* format, ...) __attribute__((format(printf, 1, 2)));
void showLog();
void hideLog();
void scrollHistoryBack();
void scrollHistoryForward();
void drawLog();
// With --log-stdout every logged line is also printed to standard output.
void setLogEcho(bool toStdout);

// The ring index before `index`, going from 0 back to 999.
int previousLine(int index);
// Where a history window starts drawing: the newest line of a ring whose next
// write goes to `writeIndex`, stepped back by historyScroll.
int newestShownLine(int writeIndex);
// Prints ring lines upward from the bottom of a 650 x 500 history window in
// font entry 2, starting at `index`, until an empty line or 34 lines.
void drawHistoryLines(SDL_Surface* surface, const char (*lines)[logLineLength], int index, FontTable* fonts);
