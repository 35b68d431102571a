#include "platform/display_loss.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>

namespace {

// Xlib's handler type, with the Display left opaque: the game does not link
// libX11 itself, it reaches the copy that SDL loaded.
using IoErrorHandler = int (*)(void* display);
using SetIoErrorHandler = IoErrorHandler (*)(IoErrorHandler);

void (*finalWords)() = nullptr;

int onDisplayLost(void*) {
  static bool inside = false;
  if (!inside) {
    inside = true;
    std::fputs("prospector: lost the connection to the X display; leaving\n", stderr);
    if (finalWords) finalWords();
  }
  _exit(1);
}

}  // namespace

void guardDisplayLoss(void (*lastWords)()) {
  void* x11 = dlopen("libX11.so.6", RTLD_NOW | RTLD_NOLOAD);
  if (!x11) return;
  auto setHandler = reinterpret_cast<SetIoErrorHandler>(dlsym(x11, "XSetIOErrorHandler"));
  if (setHandler) {
    finalWords = lastWords;
    setHandler(onDisplayLost);
  }
  dlclose(x11);  // only drops the reference NOLOAD added; SDL keeps the library
}
