#include "shell/event_queue.h"

#include <algorithm>
#include <deque>

namespace {

std::deque<SDL_Event> events;

Sint16 addRelative(Sint16 a, Sint16 b) {
  const int sum = std::clamp(a + b, -32768, 32767);
  return static_cast<Sint16>(sum);
}

}  // namespace

void queueEvent(const SDL_Event& event) {
  if (event.type == SDL_MOUSEMOTION && !events.empty() && events.back().type == SDL_MOUSEMOTION) {
    SDL_MouseMotionEvent& last = events.back().motion;
    const Sint16 xrel = addRelative(last.xrel, event.motion.xrel);
    const Sint16 yrel = addRelative(last.yrel, event.motion.yrel);
    last = event.motion;
    last.xrel = xrel;
    last.yrel = yrel;
    return;
  }
  events.push_back(event);
}

void collectSdlEvents() {
  for (SDL_Event event; SDL_PollEvent(&event);) queueEvent(event);
}

bool takeEvent(SDL_Event& event) {
  if (events.empty()) return false;
  event = events.front();
  events.pop_front();
  return true;
}

void clearEvents() { events.clear(); }
