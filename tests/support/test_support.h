#pragma once
// Tests include this one header for what nearly all of them use.
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

#include "base/debug_log.h"
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
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "universe/navigation.h"
#include "universe/planet.h"
#include "universe/star_map.h"
#include "universe/viewing_tree.h"

// Opens the headless 800 x 600 x 32 screen once per test program, builds the
// fonts and sets up the log and message windows; tests run in the built data
// directory.
void ensureScreen();
// The screen, fonts and trig tables are ready; the game state, the command
// window and the history windows are back at their start values.
class GameTest : public ::testing::Test {
 protected:
  void SetUp() override;
};

// A fresh temporary directory for files a test writes; removed with the object.
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

struct BitmapFont;
// Whether `text`, printed alone in `font` on black, shows on `shown` at (x, y): every pixel of
// its box, at most `width` columns and `rows` rows of it, is the same; or, where the box
// overlaps other drawing (`litOnly`), every lit pixel of the text; rows above `firstRow` are not compared.
bool showsText(SDL_Surface* shown, int x, int y, BitmapFont* font, const std::string& text, int width = 1000,
               bool litOnly = false, int rows = 1000, int firstRow = 0);
// The number of pixels not black in the box [x1, x2) x [y1, y2).
int litPixels(SDL_Surface* surface, int x1, int y1, int x2, int y2);

// Runs the game binary with arguments in the built data directory; returns its exit status.
struct RunResult {
  int status = -1;
  std::string out;
  std::string err;
};
// `environment` is put before the command, e.g. "SDL_VIDEODRIVER=none".
RunResult runGame(const std::string& arguments, const std::string& environment = "");

// A black 32-bit software surface.
SurfacePtr blankSurface(int w, int h);

// Watches the debug log from its creation on.
class LogWatch {
 public:
  LogWatch();
  // Whether a line logged since the watch began contains `text`.
  bool saw(const char* text) const;
  // The lines logged since the watch began, oldest first.
  std::vector<std::string> lines() const;

 private:
  int start_;
};

// The newest player message, or `back` messages before it.
const char* lastMessage(int back = 0);

// Puts stellar objects into star-map cells for one test and restores the cells afterwards.
class PlacedObjects {
 public:
  PlacedObjects() = default;
  PlacedObjects(const PlacedObjects&) = delete;
  PlacedObjects& operator=(const PlacedObjects&) = delete;
  ~PlacedObjects();
  StellarObject* place(int x, int y, const char* Class = "G", const char* Eco = "Lane 3", int planets = 0);

 private:
  struct Entry {
    int x, y;
    StellarObject* object;
    StellarObject* previous;
  };
  std::vector<Entry> placed_;
};

// Scripted runs of the real game: the `STATE {...}` lines of its output, one
// field of such a line (a number, "text", [list] or {object} as written), and
// the script lines of a click on a row of the command window.
std::vector<std::string> stateLines(const std::string& output);
std::string stateField(const std::string& state, const std::string& name);
int stateNumber(const std::string& state, const std::string& name);
std::string clickRow(int frame, int row);
// A click at (x, y) on screen: the mouse moves at `frame`, is pressed 3 frames later and let go after 3 more.
std::string clickAt(int frame, int x, int y);
// A `state` line for every frame from `first` to `last`.
std::string statesAt(int first, int last);
// The numbers of a state field holding a list, e.g. a hold.
std::vector<float> stateFloats(const std::string& state, const std::string& name);
// Runs the game unthrottled on `script` (written to a temporary file) with further arguments.
RunResult runScript(const std::string& script, const std::string& arguments);

// A copy of the built data directory in `tmp`, its saved game the shipped one.
std::string dataCopy(const TempDir& tmp);
// The same with the saved game starting in `mode` at star-map cell (starX, starY), system cell
// (systemX, systemY) and planet slot `planet`; the hold lines are the shipped ones unless given.
std::string dataCopyWithSave(const TempDir& tmp, int mode, int starX, int starY, int systemX, int systemY, int planet,
                             const std::string& shipHold = "", const std::string& roverHold = "");

// The whole content of a file; "" when it can't be read.
std::string readFile(const std::string& path);
