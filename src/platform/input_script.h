#pragma once
#include <string>
#include <string_view>
#include <vector>

// Scripted input: one command a line, '#' comments, blank lines allowed.
//   at N key down|up KEY [ctrl|lctrl|rctrl|shift]...
//   at N mouse move X Y
//   at N mouse down|up
//   at N quit
//   at N screenshot FILE
//   at N state
// Input commands are pushed into SDL's queue before frame N polls; screenshot
// and state act right after frame N is presented. Frame 1 is the first frame,
// so `at 0 state` shows the game as start-up left it.
struct ScriptCommand {
  enum class Kind { KeyDown, KeyUp, MouseMove, MouseDown, MouseUp, Quit, Screenshot, State };
  long frame = 0;
  Kind kind = Kind::State;
  int key = 0;        // SDL key symbol
  int modifiers = 0;  // SDL modifier bits set before the key event
  int x = 0, y = 0;   // mouse position for MouseMove
  std::string file;   // Screenshot target
  int line = 0;       // line of the script, for messages
};

// Parses a whole script. On the first malformed line returns false with
// `error` as "NAME:LINE: what was expected". Commands come back sorted by
// frame, keeping the script's order within a frame.
bool parseScript(std::string_view text, std::string_view name, std::vector<ScriptCommand>& commands,
                 std::string& error);
bool loadScript(const std::string& path, std::vector<ScriptCommand>& commands, std::string& error);

// SDL key symbol of a key name ("up", "escape", "d", "left_ctrl", or a number); -1 if unknown.
int keyFromName(std::string_view name);
