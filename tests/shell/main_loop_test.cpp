// The frame loop and the keyboard and mouse handlers it hands events to.

#include "shell/event_queue.h"
#include "shell/input.h"
#include "support/test_support.h"

namespace {

class FrameLoopTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    setFrameDelay(false);
    TearDown();
    gameState.posX = gameState.posY = 1000 * 50;  // far off the map's objects
    playerShip.engine.engineClass = 10;
  }
  void TearDown() override {
    for (SDL_Event e; SDL_PollEvent(&e);) {
    }
    clearEvents();
    SDL_SetModState(KMOD_NONE);
  }
};

}  // namespace

TEST(TrigTables, UseThreePointOneFourAndNeverReachOne) {
  fillTrigTables();
  EXPECT_EQ(cosTable[0], 0.999999999);
  EXPECT_NEAR(cosTable[90], 0.000796, 0.000001);
  for (int i = 0; i < 360; ++i) EXPECT_LT(std::max(std::fabs(sinTable[i]), std::fabs(cosTable[i])), 1.0) << i;
}

TEST_F(FrameLoopTest, CtrlTogglesNeedExactlyOneCtrlKey) {
  const std::pair<int, bool> cases[] = {{KMOD_NONE, false},   {KMOD_LCTRL, true},
                                        {KMOD_RCTRL, true},   {KMOD_LCTRL | KMOD_RCTRL, false},
                                        {KMOD_LSHIFT, false}, {KMOD_LCTRL | KMOD_LSHIFT, true}};
  for (const auto& [mods, acts] : cases) {
    SDL_SetModState(static_cast<SDLMod>(mods));
    for (const auto& [key, flag] : {std::pair(SDLK_d, &debugLog.visible), std::pair(SDLK_z, &messageWindow.expanded),
                                    std::pair(SDLK_r, &gameState.showFrameRate)}) {
      const int before = *flag;
      onKeyDown(key);
      EXPECT_EQ(*flag, acts ? !before : before) << mods << " key " << key;
      onKeyDown(key);
      EXPECT_EQ(*flag, before) << mods << " key " << key;
    }
  }
}

TEST_F(FrameLoopTest, ArrowsAreHeldUntilReleasedUnlessTheChartOrSiteCursorTakesThem) {
  const int arrows[] = {SDLK_UP, SDLK_DOWN, SDLK_RIGHT, SDLK_LEFT};
  const auto held = [] {
    return std::tuple(gameState.upHeld, gameState.downHeld, gameState.rightHeld, gameState.leftHeld);
  };
  for (int key : arrows) onKeyDown(key);
  onKeyUp(SDLK_a);
  EXPECT_EQ(held(), std::tuple(1, 1, 1, 1));
  gameState.navigationOpen = 1;
  for (int key : arrows) onKeyUp(key);  // releases still let go
  for (int key : arrows) onKeyDown(key);
  EXPECT_EQ(held(), std::tuple(0, 0, 0, 0));
  gameState.navigationOpen = 0;
  setCurrentMenu(11);  // Site Selection
  toggleItemSelected();
  onKeyDown(SDLK_DOWN);
  EXPECT_EQ(std::pair(gameState.downHeld, gameState.siteClicked), std::pair(0, 1));
}

TEST_F(FrameLoopTest, ClicksGoByTheLastMotionAndOverlaysTakeThemFirst) {
  onMouseButtonDown(700, 400);  // before any motion the pointer is at (0, 0), the viewscreen
  EXPECT_EQ(gameState.siteClicked, 1);
  gameState.siteClicked = 0;
  onMouseMotion(600, 330);  // row 2: Navigator
  for (int* overlay : {&gameState.cargoOpen, &gameState.navigationOpen, &gameState.configOpen}) {
    *overlay = 1;
    onMouseButtonDown(0, 0);
    onMouseButtonUp(0, 0);
    EXPECT_EQ(std::pair(getCurrentMenu(), isItemSelected()), std::pair(0, 0));
    *overlay = 0;
  }
  gameState.navigationOpen = 1;  // the chart takes the release where it happens
  targetCell = ChartCell{};
  onMouseButtonUp(300, 100);
  EXPECT_EQ(std::pair(targetCell.column, targetCell.row), std::pair(104, 84));
  gameState.navigationOpen = 0;
  onMouseButtonDown(0, 0);
  EXPECT_EQ(isItemSelected(), 1);
  onMouseButtonUp(0, 0);
  EXPECT_EQ(std::tuple(getCurrentMenu(), isItemSelected(), gameState.siteClicked), std::tuple(4, 0, 0));
}

// A hundred motions, then E twice: the motions act as one, at the newest position, then each E in its frame.
TEST_F(FrameLoopTest, AMotionRunActsAsItsNewestPositionThenOneEventPerFrameAndQuitEndsTheGame) {
  SDL_Event e{};
  e.type = SDL_MOUSEMOTION;
  for (int x = 1; x <= 100; ++x) e.motion.x = static_cast<Uint16>(x), SDL_PushEvent(&e);
  e = {};
  e.type = SDL_KEYDOWN, e.key.keysym.sym = SDLK_e;
  SDL_PushEvent(&e), SDL_PushEvent(&e);
  std::vector<int> configOpen;
  for (int frame = 0; frame < 3; ++frame) runFrame(), configOpen.push_back(gameState.configOpen);
  EXPECT_EQ(std::pair(gameState.mouseX, configOpen), std::pair(100, std::vector<int>{0, 1, 0}));
  e.type = SDL_QUIT;
  SDL_PushEvent(&e);
  EXPECT_EXIT(runFrame(), ::testing::ExitedWithCode(0), "");
  EXPECT_EXIT(onKeyDown(SDLK_ESCAPE), ::testing::ExitedWithCode(0), "");
}

TEST_F(FrameLoopTest, HistoryWindowsTakeTheArrowsBeforeTheFlightControls) {
  gameState.maneuverOn = gameState.upHeld = debugLog.visible = 1;
  for (int i = 0; i < 3; ++i) runFrame();
  EXPECT_EQ(historyScroll, 3);
  gameState.upHeld = 0;
  gameState.downHeld = 1;
  runFrame();
  EXPECT_EQ(historyScroll, 2);
  debugLog.visible = gameState.downHeld = 0;
  messageWindow.expanded = gameState.upHeld = 1;
  runFrame();
  EXPECT_EQ(std::pair(historyScroll, gameState.speed), std::pair(3, 0));
  messageWindow.expanded = 0;
  runFrame();
  EXPECT_EQ(gameState.speed, speedStep);
}

TEST_F(FrameLoopTest, LayoutFramesTheFourPanes) {
  drawScreenLayout(screen);
  for (const auto& [x, y] : {std::pair(0, 0), std::pair(799, 599), std::pair(799, 0), std::pair(700, 510)})
    EXPECT_EQ(pixelRGB(screen, x, y), 0xA4A4FFu) << x << "," << y;
  EXPECT_EQ(pixelRGB(screen, 250, 250), 0u);
  EXPECT_NEAR(int(pixelRGB(screen, 250, 4) & 0xFF), 51, 9) << "the faint fifth ring";
  EXPECT_EQ(pixelRGB(screen, 250, 5), 0u);
}
