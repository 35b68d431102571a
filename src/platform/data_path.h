#pragma once
#include <string>
#include <string_view>

// The data formats name files the DOS way (".\Stars\M.bmp"); the host wants
// "./Stars/M.bmp". Every loader goes through this one conversion.
std::string hostPath(std::string_view gamePath);

// Whether `dir` holds the game's data (its saved game NewGame.sav).
bool isDataDir(const std::string& dir);

// Where the game's data is when no --data names it: first the share/prospector
// directory of the prefix the program is installed in (`executable` is the
// program's own path, e.g. /usr/games/prospector -> /usr/share/prospector),
// then `currentDir`. Returns the first that holds the data, or "" with
// `looked` set to the directories tried, separated by " and ".
std::string findDataDir(const std::string& executable, const std::string& currentDir, std::string& looked);

// The running program's own path (from /proc/self/exe), or "" when unknown.
std::string executablePath();
