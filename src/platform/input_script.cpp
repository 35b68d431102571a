#include "platform/input_script.h"

#include <SDL.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

std::string lowered(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

bool wholeNumber(std::string_view text, long minimum, long maximum, long& value) {
  if (text.empty()) return false;
  const std::string copy(text);
  errno = 0;
  char* end = nullptr;
  const long n = std::strtol(copy.c_str(), &end, 10);
  if (errno != 0 || *end != '\0' || n < minimum || n > maximum) return false;
  value = n;
  return true;
}

std::vector<std::string_view> words(std::string_view line) {
  std::vector<std::string_view> out;
  std::size_t pos = 0;
  while (true) {
    pos = line.find_first_not_of(" \t\r", pos);
    if (pos == std::string_view::npos) break;
    std::size_t end = line.find_first_of(" \t\r", pos);
    if (end == std::string_view::npos) end = line.size();
    out.push_back(line.substr(pos, end - pos));
    pos = end;
  }
  return out;
}

int modifierFromName(std::string_view name) {
  const std::string n = lowered(name);
  if (n == "ctrl" || n == "lctrl") return KMOD_LCTRL;
  if (n == "rctrl") return KMOD_RCTRL;
  if (n == "shift") return KMOD_LSHIFT;
  return -1;
}

// Parses one non-empty, non-comment line. Returns "" on success or what was expected.
std::string parseLine(const std::vector<std::string_view>& w, ScriptCommand& cmd) {
  using Kind = ScriptCommand::Kind;
  long n = 0;
  if (w.size() < 3 || w[0] != "at") return "expected 'at FRAME COMMAND'";
  if (!wholeNumber(w[1], 0, LONG_MAX, n)) return "expected a frame number after 'at'";
  cmd.frame = n;
  const std::string_view verb = w[2];
  if (verb == "key") {
    if (w.size() < 5 || (w[3] != "down" && w[3] != "up"))
      return "expected 'key down|up KEY [ctrl|lctrl|rctrl|shift]...'";
    cmd.kind = w[3] == "down" ? Kind::KeyDown : Kind::KeyUp;
    cmd.key = keyFromName(w[4]);
    if (cmd.key < 0) return "expected a key name or number, not '" + std::string(w[4]) + "'";
    for (std::size_t i = 5; i < w.size(); ++i) {
      const int mod = modifierFromName(w[i]);
      if (mod < 0) return "expected a modifier ctrl, lctrl, rctrl or shift, not '" + std::string(w[i]) + "'";
      cmd.modifiers |= mod;
    }
    return "";
  }
  if (verb == "mouse") {
    if (w.size() == 6 && w[3] == "move") {
      long x = 0, y = 0;
      if (!wholeNumber(w[4], 0, 65535, x) || !wholeNumber(w[5], 0, 65535, y))
        return "expected 'mouse move X Y' with X and Y from 0 to 65535";
      cmd.kind = Kind::MouseMove;
      cmd.x = static_cast<int>(x);
      cmd.y = static_cast<int>(y);
      return "";
    }
    if (w.size() == 4 && (w[3] == "down" || w[3] == "up")) {
      cmd.kind = w[3] == "down" ? Kind::MouseDown : Kind::MouseUp;
      return "";
    }
    return "expected 'mouse move X Y', 'mouse down' or 'mouse up'";
  }
  if (verb == "quit" && w.size() == 3) {
    cmd.kind = Kind::Quit;
    return "";
  }
  if (verb == "state" && w.size() == 3) {
    cmd.kind = Kind::State;
    return "";
  }
  if (verb == "screenshot" && w.size() == 4) {
    cmd.kind = Kind::Screenshot;
    cmd.file = std::string(w[3]);
    return "";
  }
  return "expected one of key, mouse, quit, screenshot FILE, state after the frame number";
}

}  // namespace

int keyFromName(std::string_view name) {
  long n = 0;
  if (wholeNumber(name, 0, SDLK_LAST - 1, n)) return static_cast<int>(n);
  std::string wanted = lowered(name);
  std::replace(wanted.begin(), wanted.end(), '_', ' ');
  if (wanted.empty()) return -1;
  // SDL calls every key it has no name for "unknown key"; that is not a name
  // of any one key, so it must not pick whichever unnamed key comes first.
  const std::string unnamed = "unknown key";
  if (wanted == unnamed) return -1;
  for (int k = 1; k < SDLK_LAST; ++k) {
    const char* keyName = SDL_GetKeyName(static_cast<SDLKey>(k));
    if (keyName && lowered(keyName) == wanted) return k;
  }
  return -1;
}

bool parseScript(std::string_view text, std::string_view name, std::vector<ScriptCommand>& commands,
                 std::string& error) {
  commands.clear();
  int lineNumber = 0;
  std::size_t pos = 0;
  while (pos <= text.size()) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view line = text.substr(pos, end - pos);
    ++lineNumber;
    pos = end + 1;
    const auto w = words(line);
    if (w.empty() || w[0].front() == '#') {
      if (end == text.size()) break;
      continue;
    }
    ScriptCommand cmd;
    cmd.line = lineNumber;
    const std::string problem = parseLine(w, cmd);
    if (!problem.empty()) {
      std::ostringstream out;
      out << name << ':' << lineNumber << ": " << problem;
      error = out.str();
      return false;
    }
    commands.push_back(cmd);
    if (end == text.size()) break;
  }
  std::stable_sort(commands.begin(), commands.end(),
                   [](const ScriptCommand& a, const ScriptCommand& b) { return a.frame < b.frame; });
  return true;
}

bool loadScript(const std::string& path, std::vector<ScriptCommand>& commands, std::string& error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = path + ": cannot open the script";
    return false;
  }
  std::ostringstream content;
  content << in.rdbuf();
  return parseScript(content.str(), path, commands, error);
}
