// The input-script parser on arbitrary text.
#include <SDL.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_support.h"
#include "platform/input_script.h"
#include "platform/live_script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::vector<ScriptCommand> commands;
  std::string error;
  if (!parseScript(text, "fuzz.txt", commands, error)) {
    fuzzCheck(error.rfind("fuzz.txt:", 0) == 0, "an error that does not name the script and line");
    return 0;
  }
  long frame = 0;
  for (const ScriptCommand& c : commands) {
    fuzzCheck(c.frame >= frame, "commands not sorted by frame");
    frame = c.frame;
    if (c.kind == ScriptCommand::Kind::KeyDown || c.kind == ScriptCommand::Kind::KeyUp)
      fuzzCheck(c.key >= 0 && c.key < SDLK_LAST, "a key outside SDL's key table");
    if (c.kind == ScriptCommand::Kind::MouseMove)
      fuzzCheck(c.x >= 0 && c.x <= 65535 && c.y >= 0 && c.y <= 65535, "a pointer position out of range");
  }
  // The same text arriving live, cut into pieces wherever the reads happen to
  // end, gives the same commands in the same order.
  LiveScript live(-1, "");
  std::vector<ScriptCommand> fed;
  const std::size_t cut = size == 0 ? 0 : data[0] % size;
  live.feed(text.substr(0, cut), fed, 0, 0);
  live.feed(text.substr(cut), fed, 0, 0);
  live.feed("\n", fed, 0, 0);
  fuzzCheck(fed.size() == commands.size(), "live input gives a different number of commands");
  for (std::size_t i = 0; i < fed.size(); ++i)
    fuzzCheck(fed[i].frame == commands[i].frame && fed[i].kind == commands[i].kind && fed[i].key == commands[i].key &&
                  fed[i].line == commands[i].line && fed[i].file == commands[i].file,
              "live input gives different commands");
  return 0;
}
