#include "shell/main_loop.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cmath>

#include "shell/debug_log.h"
#include "shell/game_state.h"
#include "shell/message_window.h"
#include "ship/ship.h"
#include "support/test_support.h"

namespace {

class FrameLoopTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    setFrameDelay(false);
    flushEvents();
    gameState.posX = gameState.posY = 1000 * 50;  // far off the map's objects
    playerShip.engine.engineClass = 10;
  }
  void TearDown() override { flushEvents(); }

  static void flushEvents() {
    SDL_Event e;
    while (SDL_PollEvent(&e)) {
    }
  }
  static int queued() {
    SDL_Event events[16];
    return SDL_PeepEvents(events, 16, SDL_PEEKEVENT, SDL_ALLEVENTS);
  }
  static void pushMotion(int x, int y) {
    SDL_Event e{};
    e.type = SDL_MOUSEMOTION;
    e.motion.x = static_cast<Uint16>(x);
    e.motion.y = static_cast<Uint16>(y);
    SDL_PushEvent(&e);
  }
};

}  // namespace

TEST(TrigTables, UseThreePointOneFourAndNeverReachOne) {
  fillTrigTables();
  EXPECT_EQ(cosTable[0], 0.999999999);
  EXPECT_EQ(sinTable[0], 0.0);
  EXPECT_NEAR(cosTable[90], 0.000796, 0.000001);
  EXPECT_NEAR(sinTable[180], 0.0016, 0.0001);
  // Single-precision i/180 times the double 3.14.
  EXPECT_EQ(sinTable[37], std::sin(static_cast<float>(37) / 180.0f * 3.14));
  for (int i = 0; i < 360; ++i) {
    EXPECT_NE(std::fabs(sinTable[i]), 1.0) << i;
    EXPECT_NE(std::fabs(cosTable[i]), 1.0) << i;
  }
}

TEST_F(FrameLoopTest, TakesOneEventPerFrame) {
  pushMotion(10, 20);
  pushMotion(30, 40);
  pushMotion(50, 60);
  runFrame();
  EXPECT_EQ(gameState.mouseX, 10);
  EXPECT_EQ(queued(), 2);
  runFrame();
  EXPECT_EQ(gameState.mouseX, 30);
  EXPECT_EQ(queued(), 1);
}

TEST_F(FrameLoopTest, QuitEventEndsInTheFrameThatPollsIt) {
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  SDL_PushEvent(&quit);
  EXPECT_EXIT(runFrame(), ::testing::ExitedWithCode(0), "");
}

TEST_F(FrameLoopTest, ComputesVelocityCellAndWarpEachFrame) {
  gameState.posX = 10 * 50 + 300 + 49;
  gameState.posY = 20 * 50 + 300;
  gameState.speed = 7;
  gameState.heading = 90;
  runFrame();
  EXPECT_DOUBLE_EQ(gameState.velX, 7 * sinTable[90]);
  EXPECT_DOUBLE_EQ(gameState.velY, 7 * cosTable[90]);
  EXPECT_EQ(playerShip.engine.warpCurrent, 3);
}

TEST_F(FrameLoopTest, HistoryWindowsTakeTheArrowsBeforeTheFlightControls) {
  gameState.maneuverOn = 1;
  gameState.upHeld = 1;
  debugLog.visible = 1;
  for (int i = 0; i < 3; ++i) runFrame();
  EXPECT_EQ(gameState.speed, 0);
  EXPECT_EQ(historyScroll, 3);
  gameState.upHeld = 0;
  gameState.downHeld = 1;
  runFrame();
  EXPECT_EQ(historyScroll, 2);

  debugLog.visible = 0;
  messageWindow.expanded = 1;
  gameState.downHeld = 0;
  gameState.upHeld = 1;
  runFrame();
  EXPECT_EQ(historyScroll, 3);
  EXPECT_EQ(gameState.speed, 0);

  messageWindow.expanded = 0;
  runFrame();
  EXPECT_EQ(gameState.speed, speedStep);
}

TEST_F(FrameLoopTest, FrameRateReadOutWaitsForMoreThanASecond) {
  gameState.framesCounted = 12;
  gameState.frameRateStart = SDL_GetTicks();
  drawFrameRate();
  EXPECT_EQ(gameState.framesCounted, 12u);

  SDL_FillRect(screen, nullptr, 0);
  gameState.frameRateStart = SDL_GetTicks() - 2000;
  drawFrameRate();
  EXPECT_EQ(gameState.framesCounted, 0u);
  bool drawn = false;
  for (int y = 580; y < 596 && !drawn; ++y)
    for (int x = 755; x < 797 && !drawn; ++x) drawn = pixelRGB(screen, x, y) != 0;
  EXPECT_TRUE(drawn) << "the read-out prints digits at (755, 580)";
}

TEST_F(FrameLoopTest, FrameRateOffDrawsNothing) {
  gameState.showFrameRate = 0;
  gameState.frameRateStart = SDL_GetTicks() - 5000;
  gameState.framesCounted = 3;
  runFrame();
  EXPECT_EQ(gameState.framesCounted, 4u);
}

TEST_F(FrameLoopTest, LayoutFramesTheFourPanes) {
  drawScreenLayout(screen);
  const Uint32 frame = 0xA4A4FF;
  EXPECT_EQ(pixelRGB(screen, 0, 0), frame);      // viewscreen, outer ring
  EXPECT_EQ(pixelRGB(screen, 799, 599), frame);  // message strip
  EXPECT_EQ(pixelRGB(screen, 799, 0), frame);    // top right pane
  EXPECT_EQ(pixelRGB(screen, 700, 510), frame);  // command pane, bottom ring
  EXPECT_EQ(pixelRGB(screen, 250, 250), 0u);     // inside stays black
  // The fifth ring is faint: alpha 51 over black.
  const Uint32 inner = pixelRGB(screen, 250, 4);
  EXPECT_GT(inner & 0xFF, 40u);
  EXPECT_LT(inner & 0xFF, 60u);
  EXPECT_EQ(pixelRGB(screen, 250, 5), 0u);
}
