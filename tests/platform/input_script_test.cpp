#include "platform/input_script.h"

#include "support/test_support.h"

// The commands of a script as "frame what [key+modifiers | x,y | file]|...", or the error.
static std::string parsed(const char* script) {
  std::vector<ScriptCommand> commands;
  std::string error, out;
  if (!parseScript(script, "s.txt", commands, error)) return error;
  const char* kinds[] = {"keydown", "keyup", "move", "press", "release", "quit", "shot", "state"};
  for (const ScriptCommand& c : commands) {
    const int kind = static_cast<int>(c.kind);
    out += std::to_string(c.frame) + " " + kinds[kind];
    if (kind <= 1) out += " " + std::to_string(c.key) + "+" + std::to_string(c.modifiers);
    if (kind == 2) out += " " + std::to_string(c.x) + "," + std::to_string(c.y);
    out += (c.file.empty() ? "" : " " + c.file) + "|";
  }
  return out;
}

TEST(InputScript, ReadsEveryCommandSortedByFrameAndErrorsNameTheLine) {
  // What the game's scripts leave out: comments, blank lines, leading blanks, key numbers (273 up), SDL's key names
  // in any case with _ for a space (306 left Ctrl), modifiers (65 left Ctrl and Shift, 128 right Ctrl).
  EXPECT_EQ(parsed("# a flight\n\nat 5 key down up\n  at 2 mouse move 600 290   \nat 7 key up 273\n"
                   "at 8 key down d ctrl shift\nat 8 key down LEFT_CTRL rctrl\nat 3 mouse down\nat 9 screenshot s.bmp"),
            "2 move 600,290|3 press|5 keydown 273+0|7 keyup 273+0|8 keydown 100+65|8 keydown 306+128|9 shot s.bmp|");
  const char* errors[][2] = {{"at 1 state\nfly away\n", "s.txt:2: expected 'at FRAME COMMAND'"},
                             {"at x state\n", "s.txt:1: expected a frame number"},
                             {"at 1 key press up\n", "s.txt:1: expected 'key down|up KEY"},
                             {"at 1 key down d alt\n", "s.txt:1: expected a modifier"},
                             {"at 1 key down 99999\n", "s.txt:1: expected a key name"},
                             {"at 1 key down unknown_key\n", "s.txt:1: expected a key name"},  // SDL's unnamed keys
                             {"at 1 mouse move 10\n", "s.txt:1: expected 'mouse move X Y'"},
                             {"at 1 mouse move 10 65536\n", "s.txt:1: expected 'mouse move X Y' with X and Y from 0"},
                             {"at 1 mouse down now\n", "s.txt:1: expected 'mouse move X Y', 'mouse down' or"},
                             {"at 1 screenshot\n", "s.txt:1: expected one of"},
                             {"at 1 state now\n", "s.txt:1: expected one of"}};
  for (const auto& c : errors) EXPECT_EQ(parsed(c[0]).rfind(c[1], 0), 0u) << parsed(c[0]);
  std::vector<ScriptCommand> commands;
  std::string error;
  EXPECT_FALSE(loadScript("/nonexistent/script.txt", commands, error));
  EXPECT_NE(error.find("cannot open"), std::string::npos) << error;
}
