// The game's input queue: motion runs shrink to their newest position with their moves summed, within what a
// move can hold; nothing else is lost or moved.
#include "shell/event_queue.h"

#include "support/test_support.h"

TEST(EventQueue, MotionRunsBecomeTheirNewestMotionWithTheMovesSummedAndOtherEventsKeepTheirOrder) {
  // Type and move along x; the user code tags each event with its place, whatever the type.
  const int in[][2] = {{SDL_MOUSEMOTION, 30000},
                       {SDL_MOUSEMOTION, 30000},
                       {SDL_KEYDOWN, 0},
                       {SDL_MOUSEMOTION, -5},
                       {SDL_QUIT, 0},
                       {SDL_KEYUP, 0},
                       {SDL_MOUSEMOTION, -3},
                       {SDL_MOUSEMOTION, -32760},
                       {SDL_MOUSEMOTION, -30000}};
  clearEvents();
  for (int i = 0; i < int(std::size(in)); ++i) {
    SDL_Event e{};
    e.type = static_cast<Uint8>(in[i][0]);
    e.user.code = i;
    if (e.type == SDL_MOUSEMOTION) e.motion.xrel = static_cast<Sint16>(in[i][1]);
    queueEvent(e);
  }
  std::string out;
  for (SDL_Event e; takeEvent(e);)
    out += std::to_string(e.user.code) + (e.type == SDL_MOUSEMOTION ? ":" + std::to_string(e.motion.xrel) : "") + " ";
  EXPECT_EQ(out, "1:32767 2 3:-5 4 5 8:-32768 ");
}
