#include "platform/input_script.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include "support/test_support.h"

using Kind = ScriptCommand::Kind;

TEST(InputScript, ReadsEveryCommandAndSortsByFrame) {
  std::vector<ScriptCommand> cmds;
  std::string error;
  const char* text =
      "# a flight\n"
      "\n"
      "at 5 key down up\n"
      "at 2 mouse move 600 290\n"
      "at 3 mouse down\n"
      "  at 3 mouse up   \n"
      "at 7 key up 273\n"
      "at 8 key down d ctrl shift\n"
      "at 8 key down z rctrl\n"
      "at 9 screenshot shot.bmp\n"
      "at 9 state\n"
      "at 10 quit";
  ASSERT_TRUE(parseScript(text, "flight.txt", cmds, error)) << error;
  ASSERT_EQ(cmds.size(), 10u);
  EXPECT_EQ(cmds[0].kind, Kind::MouseMove);
  EXPECT_EQ(cmds[0].frame, 2);
  EXPECT_EQ(cmds[0].x, 600);
  EXPECT_EQ(cmds[0].y, 290);
  EXPECT_EQ(cmds[1].kind, Kind::MouseDown);
  EXPECT_EQ(cmds[2].kind, Kind::MouseUp);
  EXPECT_EQ(cmds[3].kind, Kind::KeyDown);
  EXPECT_EQ(cmds[3].key, SDLK_UP);
  EXPECT_EQ(cmds[3].line, 3);
  EXPECT_EQ(cmds[4].kind, Kind::KeyUp);
  EXPECT_EQ(cmds[4].key, 273);
  EXPECT_EQ(cmds[5].key, SDLK_d);
  EXPECT_EQ(cmds[5].modifiers, KMOD_LCTRL | KMOD_LSHIFT);
  EXPECT_EQ(cmds[6].modifiers, KMOD_RCTRL);
  EXPECT_EQ(cmds[7].kind, Kind::Screenshot);
  EXPECT_EQ(cmds[7].file, "shot.bmp");
  EXPECT_EQ(cmds[8].kind, Kind::State);
  EXPECT_EQ(cmds[9].kind, Kind::Quit);
}

TEST(InputScript, NamesTheLineAndWhatWasExpected) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"at 1 state\nfly away\n", "s.txt:2: expected 'at FRAME COMMAND'"},
      {"at x state\n", "s.txt:1: expected a frame number"},
      {"at -3 state\n", "s.txt:1: expected a frame number"},
      {"at 1 key press up\n", "s.txt:1: expected 'key down|up KEY"},
      {"at 1 key down warp\n", "s.txt:1: expected a key name or number, not 'warp'"},
      {"at 1 key down d alt\n", "s.txt:1: expected a modifier"},
      {"at 1 mouse move 10\n", "s.txt:1: expected 'mouse move X Y'"},
      {"at 1 mouse move 10 70000\n", "s.txt:1: expected 'mouse move X Y' with X and Y from 0 to 65535"},
      {"at 1 screenshot\n", "s.txt:1: expected one of"},
      {"at 1 state now\n", "s.txt:1: expected one of"},
  };
  for (const auto& c : cases) {
    std::vector<ScriptCommand> cmds;
    std::string error;
    EXPECT_FALSE(parseScript(c.text, "s.txt", cmds, error)) << c.text;
    EXPECT_EQ(error.rfind(c.error, 0), 0u) << error;
  }
}

TEST(InputScript, KeyNamesAndNumbers) {
  EXPECT_EQ(keyFromName("escape"), SDLK_ESCAPE);
  EXPECT_EQ(keyFromName("LEFT"), SDLK_LEFT);
  EXPECT_EQ(keyFromName("left_ctrl"), SDLK_LCTRL);
  EXPECT_EQ(keyFromName("100"), SDLK_d);
  EXPECT_EQ(keyFromName("99999"), -1);
  EXPECT_EQ(keyFromName(""), -1);
}

TEST(InputScript, MissingFileIsAnError) {
  std::vector<ScriptCommand> cmds;
  std::string error;
  EXPECT_FALSE(loadScript("/nonexistent/script.txt", cmds, error));
  EXPECT_NE(error.find("cannot open"), std::string::npos);
}
