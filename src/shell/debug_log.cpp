#include "shell/debug_log.h"

#include <cstdarg>
#include <cstdio>
// placeholder
MessageLog debugLog;
int historyScroll = 0;
namespace {
SDL_Surface* shared = nullptr;
bool echo = false;
}  // namespace
void initLog(MessageLog*, FontTable*, SDL_Surface* s, int) { shared = s; }
void setLogScreen(SDL_Surface* s, int) { shared = s; }
SDL_Surface* logScreen() { return shared; }
void logMessage(const char* text) {
  if (echo) std::printf("%s\n", text);
}
void logMessagef(const char* format, ...) {
  char b[1024];
  va_list a;
  va_start(a, format);
  std::vsnprintf(b, sizeof b, format, a);
  va_end(a);
  logMessage(b);
}
void showLog() { debugLog.visible = 1; }
void hideLog() { debugLog.visible = 0; }
void scrollHistoryBack() {}
void scrollHistoryForward() {}
void drawLog() {}
void setLogEcho(bool e) { echo = e; }
