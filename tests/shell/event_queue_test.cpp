// The game's input queue: motion runs shrink to their newest position with their moves summed; nothing else is
// lost or moved.
#include "shell/event_queue.h"

#include <random>

#include "support/test_support.h"

namespace {

// An event's type, its tag (kept in the user code, whatever the type) and, for a motion, its move along x.
std::tuple<int, int, int> seen(const SDL_Event& e) {
  return {e.type, e.user.code, e.type == SDL_MOUSEMOTION ? e.motion.xrel : 0};
}

}  // namespace

TEST(EventQueue, RandomStreamsKeepEveryOtherEventInOrderAndEachRunsNewestMotion) {
  std::mt19937 random(18);
  const Uint8 types[] = {SDL_KEYDOWN, SDL_KEYUP, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_QUIT, SDL_ACTIVEEVENT};
  for (int round = 0; round < 200; ++round) {
    clearEvents();
    std::vector<SDL_Event> in, out;
    for (int i = 0, count = static_cast<int>(random() % 60); i < count; ++i) {
      SDL_Event e{};
      e.user.code = i;
      e.type = random() % 3 ? Uint8{SDL_MOUSEMOTION} : types[random() % 6];  // mostly motion
      if (e.type == SDL_MOUSEMOTION) e.motion.xrel = 1;
      in.push_back(e);
      queueEvent(e);
    }
    for (SDL_Event e; takeEvent(e);) out.push_back(e);
    std::size_t o = 0;
    for (std::size_t i = 0, run = 0; i < in.size(); ++i) {
      run = in[i].type == SDL_MOUSEMOTION ? run + 1 : 0;
      if (run && i + 1 < in.size() && in[i + 1].type == SDL_MOUSEMOTION) continue;
      ASSERT_LT(o, out.size()) << "round " << round;
      if (run) in[i].motion.xrel = static_cast<Sint16>(run);  // the run's moves summed
      EXPECT_EQ(seen(out[o++]), seen(in[i])) << round << " " << i;
    }
    EXPECT_EQ(o, out.size()) << "round " << round;
  }
}
