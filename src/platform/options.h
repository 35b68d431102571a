#pragma once
#include <optional>
#include <string>

// The command line. With no options the game behaves as it always has.
struct Options {
  std::string dataDir;               // --data DIR: change to DIR before loading
  std::optional<long> frames;        // --frames N: leave with status 0 after N frames
  std::optional<unsigned int> seed;  // --seed N: in place of the time wherever it seeds
  bool unthrottled = false;          // --unthrottled: no frame-rate delay
  bool logToStdout = false;          // --log-stdout: echo the debug log
  std::string scriptPath;            // --script FILE: scripted input
  std::string frameTimesPath;        // --frame-times FILE: each frame's work time
  int scale = 1;                     // --scale N: window N times 800 x 600 (1 to 4)
  bool check = false;                // --check: check the data files and leave
  bool help = false;                 // --help
  bool newVoyage = false;            // --new: start from NewGame.sav, replace the voyage at the first save
  std::string voyagePath;            // --voyage FILE: the voyage kept in FILE
  int autosaveMs = 1000;             // --autosave MS: least time between autosaves (0: every frame)
};

// Parses argv. On a bad command line returns false with `error` set.
bool parseOptions(int argc, const char* const* argv, Options& options, std::string& error);

const char* usageText();
