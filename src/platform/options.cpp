#include "platform/options.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string_view>

namespace {

bool parseNumber(const char* text, long minimum, long maximum, long& value) {
  if (!text || !*text) return false;
  errno = 0;
  char* end = nullptr;
  const long n = std::strtol(text, &end, 10);
  if (errno != 0 || *end != '\0' || n < minimum || n > maximum) return false;
  value = n;
  return true;
}

}  // namespace

const char* usageText() {
  return "usage: prospector [options]\n"
         "  --data DIR       load the game's data from DIR (default: ../share/prospector beside\n"
         "                   the installed program, else the current directory)\n"
         "  --scale N        show the 800 x 600 game in a window N times as large (1 to 4)\n"
         "  --check          check the data files, print each problem as FILE:LINE, and leave\n"
         "  --frames N       leave with status 0 after N frames\n"
         "  --seed N         seed the random generator with N instead of the time\n"
         "  --unthrottled    do not wait between frames\n"
         "  --log-stdout     also print every debug-log line to standard output\n"
         "  --script FILE    play the scripted input in FILE (-: read it as the game runs)\n"
         "  --new            start a new voyage; it replaces the kept one at the first save\n"
         "  --voyage FILE    keep the voyage in FILE (also for --script and --frames runs)\n"
         "  --autosave MS    save a changed voyage at most every MS milliseconds (default 1000;\n"
         "                   0 saves after every frame)\n"
         "  --frame-times FILE  write each frame's work in microseconds to FILE\n"
         "  --help           show this text\n";
}

bool parseOptions(int argc, const char* const* argv, Options& options, std::string& error) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    auto value = [&](const char*& out) {
      if (i + 1 >= argc) {
        error = std::string(arg) + " needs a value";
        return false;
      }
      out = argv[++i];
      return true;
    };
    // A file or directory named after the option: an empty name is refused.
    auto path = [&](std::string& out, const char* what) {
      const char* name = nullptr;
      if (!value(name)) return false;
      if (!*name) {
        error = std::string(arg) + " needs a " + what;
        return false;
      }
      out = name;
      return true;
    };
    // A whole number in [minimum, maximum]; anything else is refused saying what the option takes.
    auto number = [&](long& out, long minimum, long maximum, const char* what) {
      const char* text = nullptr;
      if (!value(text)) return false;
      if (!parseNumber(text, minimum, maximum, out)) {
        error = std::string(arg) + " takes " + what + ", not '" + text + "'";
        return false;
      }
      return true;
    };
    long n = 0;
    if (arg == "--help" || arg == "-h") {
      options.help = true;
    } else if (arg == "--unthrottled") {
      options.unthrottled = true;
    } else if (arg == "--log-stdout") {
      options.logToStdout = true;
    } else if (arg == "--check") {
      options.check = true;
    } else if (arg == "--scale") {
      if (!number(n, 1, 4, "a whole number from 1 to 4")) return false;
      options.scale = static_cast<int>(n);
    } else if (arg == "--data") {
      if (!path(options.dataDir, "directory")) return false;
    } else if (arg == "--script") {
      if (!path(options.scriptPath, "file")) return false;
    } else if (arg == "--frame-times") {
      if (!path(options.frameTimesPath, "file")) return false;
    } else if (arg == "--frames") {
      if (!number(n, 0, LONG_MAX, "a whole number of frames")) return false;
      options.frames = n;
    } else if (arg == "--seed") {
      if (!number(n, 0, UINT_MAX, "a whole number from 0 to 4294967295")) return false;
      options.seed = static_cast<unsigned int>(n);
    } else if (arg == "--new") {
      options.newVoyage = true;
    } else if (arg == "--voyage") {
      if (!path(options.voyagePath, "file")) return false;
    } else if (arg == "--autosave") {
      if (!number(n, 0, 3600000, "a whole number of milliseconds from 0 to 3600000")) return false;
      options.autosaveMs = static_cast<int>(n);
    } else {
      error = "unknown option '" + std::string(arg) + "'";
      return false;
    }
  }
  return true;
}
