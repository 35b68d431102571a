#include "shell/message_window.h"

#include <cstdarg>
#include <cstdio>
// placeholder
MessageWindow messageWindow;
void initMessageWindow(MessageWindow*, FontTable*, SDL_Surface*) {}
void showMessage(const char*) {}
void showMessagef(const char* format, ...) {
  char b[1024];
  va_list a;
  va_start(a, format);
  std::vsnprintf(b, sizeof b, format, a);
  va_end(a);
  showMessage(b);
}
void expandMessages() { messageWindow.expanded = 1; }
void collapseMessages() { messageWindow.expanded = 0; }
void drawMessageWindow() {}
