#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/input_script.h"

// Script lines that arrive while the game runs (`--script -`), so a program
// driving the game can react to the state lines it reads. The same commands as
// a script file; a line whose frame has already passed acts at the next frame.
class LiveScript {
 public:
  // Reads from `fd` without ever waiting for it. Relative screenshot files are
  // made to lie under `baseDir` (where the player started the game). A
  // negative fd reads nothing: such a reader takes only what feed() hands it.
  LiveScript(int fd, std::string baseDir);

  // Takes what has arrived so far. Every complete line becomes a command,
  // inserted in frame order among script[firstPending..]. A frame before
  // `frame` is moved up to it, and every later line of the same poll is moved
  // by as much, so commands sent together keep their spacing. The commands
  // before firstPending, already acted on, are dropped first (firstPending
  // becomes 0), so a run steered for hours holds only what is still to come.
  // A malformed line is reported on stderr as "stdin:LINE: what" and skipped:
  // a typo must not end a long run.
  void poll(std::vector<ScriptCommand>& script, std::size_t& firstPending, long frame);
  // The same for bytes in hand, for callers that read them elsewhere.
  void feed(std::string_view bytes, std::vector<ScriptCommand>& script, std::size_t firstPending, long frame);
  // True once the input has ended; the game then runs on without it.
  bool ended() const { return ended_; }

 private:
  int fd_;
  std::string baseDir_;
  std::string partial_;
  int lineNumber_ = 0;
  long lateBy_ = 0;  // frames the lines of this poll are moved by
  bool ended_ = false;
};
