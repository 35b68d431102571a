// The game's input queue: motion runs shrink to their newest position, nothing else is lost or moved.
#include "shell/event_queue.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "support/test_support.h"

namespace {

SDL_Event motion(int x, int y, int xrel = 1) {
  SDL_Event e{};
  e.type = SDL_MOUSEMOTION;
  e.motion.x = static_cast<Uint16>(x);
  e.motion.y = static_cast<Uint16>(y);
  e.motion.xrel = static_cast<Sint16>(xrel);
  return e;
}

SDL_Event other(Uint8 type, int tag) {
  SDL_Event e{};
  e.type = type;
  if (type == SDL_KEYDOWN || type == SDL_KEYUP) e.key.keysym.sym = static_cast<SDLKey>(tag);
  if (type == SDL_MOUSEBUTTONDOWN || type == SDL_MOUSEBUTTONUP) e.button.x = static_cast<Uint16>(tag);
  return e;
}

// What tells two events of a type apart here.
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

class EventQueueTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ensureScreen();
    clearEvents();
  }
  void TearDown() override { clearEvents(); }
};

}  // namespace

TEST_F(EventQueueTest, AFloodOfMotionDelaysNeitherKeysNorClicks) {
  // 100 motions then E: E acts in the second frame.
  for (int i = 0; i < 100; ++i) queueEvent(motion(i, 2 * i));
  queueEvent(other(SDL_KEYDOWN, SDLK_e));
  std::vector<SDL_Event> taken = takeAll();
  ASSERT_EQ(taken.size(), 2u);
  EXPECT_EQ(std::vector<int>({taken[0].motion.x, taken[0].motion.y, taken[0].motion.xrel}),
            std::vector<int>({99, 198, 100}));
  EXPECT_EQ(taken[1].key.keysym.sym, SDLK_e);

  // 500 motions, a click and a key: all three act, in their order.
  for (int i = 0; i < 500; ++i) queueEvent(motion(700, i % 600));
  for (Uint8 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_KEYDOWN}) queueEvent(other(type, 7));
  taken = takeAll();
  std::vector<int> types;
  for (const SDL_Event& e : taken) types.push_back(e.type);
  EXPECT_EQ(types, std::vector<int>({SDL_MOUSEMOTION, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_KEYDOWN}));
  EXPECT_EQ(taken[0].motion.y, 499);
  // Relative movement adds up but saturates instead of wrapping.
  for (int i = 0; i < 3; ++i) queueEvent(motion(0, 0, 30000));
  EXPECT_EQ(takeAll()[0].motion.xrel, 32767);
}

TEST_F(EventQueueTest, RandomStreamsKeepEveryOtherEventInOrderAndEachRunsNewestMotion) {
  std::mt19937 random(18);
  const Uint8 types[] = {SDL_KEYDOWN, SDL_KEYUP, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_QUIT, SDL_ACTIVEEVENT};
  for (int round = 0; round < 200; ++round) {
    std::vector<SDL_Event> in;
    const int count = static_cast<int>(random() % 60);
    for (int i = 0; i < count; ++i) {
      // Mostly motion, as from a real mouse; the position tells the events apart.
      in.push_back(random() % 3 ? motion(i, round) : other(types[random() % 6], i));
      queueEvent(in.back());
    }
    const std::vector<SDL_Event> out = takeAll();
    std::size_t o = 0;
    for (std::size_t i = 0; i < in.size(); ++i) {
      const bool runEnds = i + 1 == in.size() || in[i + 1].type != SDL_MOUSEMOTION;
      if (in[i].type == SDL_MOUSEMOTION && !runEnds) continue;
      ASSERT_LT(o, out.size()) << "round " << round;
      ASSERT_EQ(out[o].type, in[i].type) << "round " << round << " event " << i;
      EXPECT_EQ(tag(out[o]), tag(in[i])) << "round " << round << " event " << i;
      ++o;
    }
    EXPECT_EQ(o, out.size()) << "round " << round;
  }
}

TEST_F(EventQueueTest, SdlsQueueIsEmptiedIntoTheGamesEachCall) {
  for (int i = 0; i < 40; ++i) {
    SDL_Event e = motion(i, i);
    SDL_PushEvent(&e);
  }
  SDL_Event key = other(SDL_KEYDOWN, SDLK_e);
  SDL_PushEvent(&key);
  collectSdlEvents();
  SDL_Event e;
  EXPECT_EQ(SDL_PeepEvents(&e, 1, SDL_PEEKEVENT, SDL_ALLEVENTS), 0);
  EXPECT_EQ(queuedEventCount(), 2u);
}
