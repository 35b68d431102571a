// The game's input queue: motion runs shrink to their newest position, nothing else is lost or moved.
#include "shell/event_queue.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

namespace {

// An event of `type` told apart by `tag`: a motion's x, a key's symbol or a button's x.
SDL_Event event(Uint8 type, int tag) {
  SDL_Event e{};
  e.type = type;
  if (type == SDL_MOUSEMOTION) e.motion.x = static_cast<Uint16>(tag);
  if (type == SDL_KEYDOWN || type == SDL_KEYUP) e.key.keysym.sym = static_cast<SDLKey>(tag);
  if (type == SDL_MOUSEBUTTONDOWN || type == SDL_MOUSEBUTTONUP) e.button.x = static_cast<Uint16>(tag);
  return e;
}

int tag(const SDL_Event& e) {
  if (e.type == SDL_MOUSEMOTION) return e.motion.x;
  if (e.type == SDL_KEYDOWN || e.type == SDL_KEYUP) return e.key.keysym.sym;
  return e.type == SDL_MOUSEBUTTONDOWN || e.type == SDL_MOUSEBUTTONUP ? e.button.x : 0;
}

std::vector<SDL_Event> takeAll() {
  std::vector<SDL_Event> out;
  for (SDL_Event e; takeEvent(e);) out.push_back(e);
  return out;
}

}  // namespace

TEST(EventQueue, RandomStreamsKeepEveryOtherEventInOrderAndEachRunsNewestMotion) {
  std::mt19937 random(18);
  const Uint8 types[] = {SDL_KEYDOWN, SDL_KEYUP, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_QUIT, SDL_ACTIVEEVENT};
  for (int round = 0; round < 200; ++round) {
    clearEvents();
    std::vector<SDL_Event> in;
    for (int i = 0, count = static_cast<int>(random() % 60); i < count; ++i) {
      in.push_back(event(random() % 3 ? Uint8{SDL_MOUSEMOTION} : types[random() % 6], i));  // mostly motion
      queueEvent(in.back());
    }
    const std::vector<SDL_Event> out = takeAll();
    std::size_t o = 0;
    for (std::size_t i = 0; i < in.size(); ++i) {
      const bool runEnds = i + 1 == in.size() || in[i + 1].type != SDL_MOUSEMOTION;
      if (in[i].type == SDL_MOUSEMOTION && !runEnds) continue;
      ASSERT_LT(o, out.size()) << "round " << round;
      EXPECT_EQ(std::pair(out[o].type, tag(out[o])), std::pair(in[i].type, tag(in[i]))) << round << " " << i;
      ++o;
    }
    EXPECT_EQ(o, out.size()) << "round " << round;
  }
}
