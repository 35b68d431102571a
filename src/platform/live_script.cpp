#include "platform/live_script.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>

LiveScript::LiveScript(int fd, std::string baseDir) : fd_(fd), baseDir_(std::move(baseDir)) {
  if (fd_ < 0) {
    ended_ = true;  // fed by hand only
    return;
  }
  const int flags = fcntl(fd_, F_GETFL);
  if (flags < 0 || fcntl(fd_, F_SETFL, flags | O_NONBLOCK) < 0) {
    std::perror("prospector: live script input");
    ended_ = true;
  }
}

void LiveScript::poll(std::vector<ScriptCommand>& script, std::size_t& firstPending, long frame) {
  firstPending = std::min(firstPending, script.size());
  script.erase(script.begin(), script.begin() + static_cast<std::ptrdiff_t>(firstPending));
  firstPending = 0;
  char buffer[4096];
  lateBy_ = 0;
  while (!ended_) {
    const ssize_t n = read(fd_, buffer, sizeof buffer);
    if (n > 0) {
      feed(std::string_view(buffer, static_cast<std::size_t>(n)), script, firstPending, frame);
    } else if (n == 0 || (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR)) {
      // A last line without its line feed still counts.
      if (!partial_.empty()) feed("\n", script, firstPending, frame);
      ended_ = true;
    } else if (errno != EINTR) {
      return;  // nothing more for now
    }
  }
}

void LiveScript::feed(std::string_view bytes, std::vector<ScriptCommand>& script, std::size_t firstPending,
                      long frame) {
  partial_.append(bytes);
  std::size_t start = 0;
  for (std::size_t end; (end = partial_.find('\n', start)) != std::string::npos; start = end + 1) {
    ++lineNumber_;
    std::vector<ScriptCommand> parsed;
    std::string error;
    if (!parseScript(std::string_view(partial_).substr(start, end - start), "stdin", parsed, error)) {
      // The parser numbers the one line it saw as line 1.
      const std::size_t colon = error.find(':', 6);
      std::fprintf(stderr, "stdin:%d%s\n", lineNumber_, colon == std::string::npos ? "" : error.c_str() + colon);
      continue;
    }
    for (ScriptCommand& cmd : parsed) {
      cmd.line = lineNumber_;
      // A late line acts at once, and the lines that came with it keep the
      // spacing the sender gave them: one input event a frame still reaches
      // the game in order, and a state line after inputs still shows them.
      lateBy_ = std::max(lateBy_, frame - cmd.frame);
      cmd.frame = cmd.frame > LONG_MAX - lateBy_ ? LONG_MAX : cmd.frame + lateBy_;
      if (cmd.kind == ScriptCommand::Kind::Screenshot && !cmd.file.empty() && cmd.file[0] != '/' && !baseDir_.empty())
        cmd.file = baseDir_ + "/" + cmd.file;
      firstPending = std::min(firstPending, script.size());
      const auto at =
          std::upper_bound(script.begin() + static_cast<std::ptrdiff_t>(firstPending), script.end(), cmd,
                           [](const ScriptCommand& a, const ScriptCommand& b) { return a.frame < b.frame; });
      script.insert(at, cmd);
    }
  }
  partial_.erase(0, start);
}
