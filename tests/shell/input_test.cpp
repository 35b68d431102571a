#include "shell/input.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include "shell/command_window.h"
#include "shell/debug_log.h"
#include "shell/game_state.h"
#include "shell/main_loop.h"
#include "shell/message_window.h"
#include "ship/ship.h"
#include "support/test_support.h"

namespace {

class InputTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    playerShip.engine.engineClass = 10;
  }
  void TearDown() override { SDL_SetModState(KMOD_NONE); }
};

void selectSiteSelection() {
  setCurrentMenu(11);
  setCurrentItem(0);
  toggleItemSelected();
}

}  // namespace

TEST_F(InputTest, CtrlBindingsNeedExactlyOneCtrlKey) {
  const struct {
    int mods;
    bool acts;
  } cases[] = {
      {KMOD_NONE, false},
      {KMOD_LCTRL, true},
      {KMOD_RCTRL, true},
      {KMOD_LCTRL | KMOD_RCTRL, false},
      {KMOD_LCTRL | KMOD_LSHIFT, true},
      {KMOD_LSHIFT, false},
  };
  for (const auto& c : cases) {
    debugLog.visible = 0;
    SDL_SetModState(static_cast<SDLMod>(c.mods));
    EXPECT_EQ(singleCtrlHeld(), c.acts) << c.mods;
    onKeyDown(SDLK_d);
    EXPECT_EQ(debugLog.visible, c.acts ? 1 : 0) << c.mods;
  }
}

TEST_F(InputTest, CtrlTogglesFlipBackAndForth) {
  SDL_SetModState(KMOD_LCTRL);
  onKeyDown(SDLK_d);
  EXPECT_EQ(debugLog.visible, 1);
  onKeyDown(SDLK_d);
  EXPECT_EQ(debugLog.visible, 0);

  onKeyDown(SDLK_z);
  EXPECT_EQ(messageWindow.expanded, 1);
  onKeyDown(SDLK_z);
  EXPECT_EQ(messageWindow.expanded, 0);

  ASSERT_EQ(gameState.showFrameRate, 1);
  onKeyDown(SDLK_r);
  EXPECT_EQ(gameState.showFrameRate, 0);
  onKeyDown(SDLK_r);
  EXPECT_EQ(gameState.showFrameRate, 1);

  SDL_SetModState(KMOD_NONE);
  onKeyDown(SDLK_r);  // R without Ctrl does nothing
  EXPECT_EQ(gameState.showFrameRate, 1);
}

TEST_F(InputTest, PlainKeysActWithOrWithoutModifiers) {
  onKeyDown(SDLK_e);
  EXPECT_EQ(gameState.configOpen, 1);
  SDL_SetModState(KMOD_LCTRL);
  onKeyDown(SDLK_e);
  EXPECT_EQ(gameState.configOpen, 0);

  // O has no lower limit: ten presses from 10 leave 0, one more -1.
  for (int i = 0; i < 10; ++i) onKeyDown(SDLK_o);
  EXPECT_EQ(playerShip.engine.engineClass, 0);
  onKeyDown(SDLK_o);
  EXPECT_EQ(playerShip.engine.engineClass, -1);
  onKeyDown(SDLK_p);
  onKeyDown(SDLK_p);
  EXPECT_EQ(playerShip.engine.engineClass, 1);
}

TEST_F(InputTest, ArrowsSetHeldFlagsThatOnlyTheirReleaseClears) {
  const int arrows[] = {SDLK_UP, SDLK_DOWN, SDLK_RIGHT, SDLK_LEFT};
  int* flags[] = {&gameState.upHeld, &gameState.downHeld, &gameState.rightHeld, &gameState.leftHeld};
  for (int i = 0; i < 4; ++i) {
    onKeyDown(arrows[i]);
    EXPECT_EQ(*flags[i], 1);
  }
  onKeyUp(SDLK_a);
  for (int* flag : flags) EXPECT_EQ(*flag, 1);
  for (int i = 0; i < 4; ++i) {
    onKeyUp(arrows[i]);
    EXPECT_EQ(*flags[i], 0);
  }
}

TEST_F(InputTest, ChartAndSiteCursorTakeTheArrowsButReleasesStillClear) {
  gameState.navigationOpen = 1;
  onKeyDown(SDLK_UP);
  onKeyDown(SDLK_LEFT);
  EXPECT_EQ(gameState.upHeld, 0);
  EXPECT_EQ(gameState.leftHeld, 0);
  gameState.navigationOpen = 0;

  selectSiteSelection();
  onKeyDown(SDLK_DOWN);
  EXPECT_EQ(gameState.downHeld, 0);
  EXPECT_EQ(gameState.siteClicked, 1);

  // Held before the chart opened: the release while it is open still lets go.
  toggleItemSelected();
  onKeyDown(SDLK_RIGHT);
  gameState.navigationOpen = 1;
  onKeyUp(SDLK_RIGHT);
  EXPECT_EQ(gameState.rightHeld, 0);
}

TEST_F(InputTest, MotionKeepsThePointerAndHoversTheCommandPane) {
  onMouseMotion(600, 300);  // row 1 of the command window
  EXPECT_EQ(gameState.mouseX, 600);
  EXPECT_EQ(gameState.mouseY, 300);
  EXPECT_EQ(getCurrentItem(), 1);

  // While the flight controls are engaged the menu does not follow the mouse.
  gameState.maneuverOn = 1;
  onMouseMotion(600, 360);
  EXPECT_EQ(getCurrentItem(), 1);
  EXPECT_EQ(gameState.mouseY, 360);
}

TEST_F(InputTest, ClickBeforeAnyMotionCountsAsAViewscreenClick) {
  ASSERT_EQ(gameState.mouseX, 0);
  ASSERT_EQ(gameState.mouseY, 0);
  onMouseButtonDown(700, 400);  // the event's own position is not looked at
  EXPECT_EQ(gameState.siteClicked, 1);
  EXPECT_EQ(isItemSelected(), 0);
}

TEST_F(InputTest, PressInTheCommandPaneTogglesUnlessAnOverlayTakesIt) {
  onMouseMotion(600, 270);
  onMouseButtonDown(600, 270);
  EXPECT_EQ(isItemSelected(), 1);
  EXPECT_EQ(gameState.siteClicked, 0);
  onMouseButtonDown(600, 270);
  EXPECT_EQ(isItemSelected(), 0);

  for (int* overlay : {&gameState.cargoOpen, &gameState.navigationOpen, &gameState.configOpen}) {
    *overlay = 1;
    onMouseButtonDown(600, 270);
    onMouseButtonUp(600, 270);
    EXPECT_EQ(isItemSelected(), 0);
    EXPECT_EQ(getCurrentMenu(), 0);
    *overlay = 0;
  }
}

TEST_F(InputTest, ReleaseInTheCommandPanePerformsTheAction) {
  onMouseMotion(600, 330);  // row 2: Navigator
  onMouseButtonDown(600, 330);
  onMouseButtonUp(600, 330);
  EXPECT_EQ(getCurrentMenu(), 4);
  EXPECT_EQ(isItemSelected(), 0);
}

TEST_F(InputTest, EscapeAndCloseRequestEndTheGameWithStatusZero) {
  EXPECT_EXIT(onKeyDown(SDLK_ESCAPE), ::testing::ExitedWithCode(0), "");
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  EXPECT_EXIT(dispatchEvent(quit), ::testing::ExitedWithCode(0), "");
}
