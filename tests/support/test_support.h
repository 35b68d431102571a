#pragma once
#include <SDL.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/game_state.h"
#include "base/message_window.h"
#include "base/screen.h"
#include "platform/data_path.h"
#include "platform/random.h"
#include "platform/surface_ptr.h"
#include "shell/command_window.h"
#include "shell/main_loop.h"
#include "shell/mode_frames.h"
#include "shell/orbit.h"
#include "shell/screen_layout.h"
#include "shell/state_dump.h"
#include "ship/ship.h"
#include "surface/globe.h"
#include "surface/surface_map.h"
#include "surface/terrain.h"
#include "ui/font_builder.h"
#include "universe/navigation.h"
#include "universe/viewing_tree.h"

// The headless 800 x 600 x 32 screen, fonts, log and message windows, made once per program.
void ensureScreen();
// The screen is ready; the game state, command window and history windows are fresh.
class GameTest : public ::testing::Test {
 protected:
  void SetUp() override;
};

// A temporary directory, removed with the object.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  std::string path(const std::string& name) const;
  std::string write(const std::string& name, const std::string& content) const;
  const std::string& dir() const { return dir_; }

 private:
  std::string dir_;
};

// Reads a pixel of a 32-bit surface as 0xRRGGBB.
Uint32 pixelRGB(SDL_Surface* surface, int x, int y);

// Whether `text` in `font` shows at (x, y) as printed alone on black: every pixel of its box (at most `width` x
// `rows`, from `firstRow`), or only its lit pixels where other drawing overlaps (`litOnly`).
bool showsText(SDL_Surface* shown, int x, int y, BitmapFont* font, const std::string& text, int width = 1000,
               bool litOnly = false, int rows = 1000, int firstRow = 0);
// The number of pixels not black in the box [x1, x2) x [y1, y2), or differing between two surfaces there.
int litPixels(SDL_Surface* surface, int x1, int y1, int x2, int y2);
int differingPixels(SDL_Surface* a, SDL_Surface* b, int x1, int y1, int x2, int y2);
// Boxes x1, y1, x2, y2 of the screen: the command window, the message strip left of the frame-rate read-out, the
// map's legend, then the pane borders round x = 510, y = 255 (right half) and y = 510.
inline constexpr int screenBoxes[6][4] = {{515, 260, 795, 505}, {5, 515, 750, 595},   {10, 210, 501, 296},
                                          {506, 0, 515, 600},   {515, 251, 800, 260}, {0, 506, 800, 515}};

struct RunResult {
  int status = -1;
  std::string out, err;
};
// Runs the game in the built data directory, `environment` (e.g. "HOME=/x") before the command.
RunResult runGame(const std::string& arguments, const std::string& environment = "");
// Runs a shell command; its status and both streams together in `out`.
RunResult runShell(const std::string& command);

// A black 32-bit software surface.
SurfacePtr blankSurface(int w, int h);

// The debug log's lines since the watch was made, oldest first, and whether one contains `text`.
class LogWatch {
 public:
  LogWatch();
  bool saw(const char* text) const;
  std::vector<std::string> lines() const;

 private:
  int start_;
};

// The newest player message, or `back` messages before it.
const char* lastMessage(int back = 0);

// Stellar objects put into star-map cells, the cells restored afterwards.
class PlacedObjects {
 public:
  PlacedObjects() = default;
  PlacedObjects(const PlacedObjects&) = delete;
  PlacedObjects& operator=(const PlacedObjects&) = delete;
  ~PlacedObjects();
  StellarObject* place(int x, int y, const char* Class = "G", const char* Eco = "Lane 3", int planets = 0);

 private:
  std::vector<std::tuple<int, int, StellarObject*, StellarObject*>> placed_;  // cell, object, previous object
};

// Scripted runs: the `STATE {...}` lines of the output, a field of one as written (number, "text", [list],
// {object}), as a number or a list of numbers.
std::vector<std::string> stateLines(const std::string& output);
std::string stateField(const std::string& state, const std::string& name);
int stateNumber(const std::string& state, const std::string& name);
std::vector<float> stateFloats(const std::string& state, const std::string& name);
// Script lines: a click on a command-window row, a click at (x, y) (move, press 3 frames later, release after 3
// more), a `state` line every frame from `first` to `last`.
std::string clickRow(int frame, int row);
std::string clickAt(int frame, int x, int y);
std::string statesAt(int first, int last);
// Runs the game unthrottled on `script` with further arguments.
RunResult runScript(const std::string& script, const std::string& arguments);

// A copy of the built data directory in `tmp`; with the saved game starting in `mode` at star cell (starX, starY),
// system cell (systemX, systemY), planet slot `planet`, and the holds as shipped unless given.
std::string dataCopy(const TempDir& tmp);
std::string dataCopyWithSave(const TempDir& tmp, int mode, int starX, int starY, int systemX, int systemY, int planet,
                             const std::string& shipHold = "", const std::string& roverHold = "");

// A whole file; "" when it can't be read.
std::string readFile(const std::string& path);
