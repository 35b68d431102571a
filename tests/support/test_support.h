#pragma once
#include <SDL.h>
#include <gtest/gtest.h>

#include <string>

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

// Runs the game binary with arguments in the built data directory; returns its exit status.
struct RunResult {
  int status = -1;
  std::string out;
  std::string err;
};
// `environment` is put before the command, e.g. "SDL_VIDEODRIVER=none".
RunResult runGame(const std::string& arguments, const std::string& environment = "");
