#include <SDL.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <regex>
#include <string>

#include "support/test_support.h"

TEST(Startup, VideoThatCannotStartEndsWithStatusOne) {
  const RunResult r = runGame("--frames 5", "SDL_VIDEODRIVER=no-such-driver");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err.rfind("Couldn't initialize SDL: ", 0), 0u) << r.err;
}

TEST(Startup, RunsHeadlessForAFixedNumberOfFrames) {
  const RunResult r = runGame("--frames 90 --unthrottled");
  EXPECT_EQ(r.status, 0) << r.err;
}

TEST(Startup, BadOptionsAndScriptsShowWhatIsWrong) {
  RunResult r = runGame("--warp 9");
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("unknown option '--warp'"), std::string::npos);
  EXPECT_NE(r.err.find("usage: prospector"), std::string::npos);
  r = runGame("--help");
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("--script FILE"), std::string::npos);

  TempDir tmp;
  const std::string script = tmp.write("bad.txt", "at 1 state\nat 2 key down nokey\n");
  r = runGame("--script " + script);
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find(script + ":2: expected a key name"), std::string::npos) << r.err;
}

TEST(Startup, MissingFontOrSavedGameEndWithAClearMessage) {
  TempDir empty;
  RunResult r = runGame("--data " + empty.dir() + " --frames 1");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("ATX_A.ttf"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("scripts/install-deps"), std::string::npos) << r.err;

  ASSERT_EQ(symlink((std::string(PROSPECTOR_DATA_DIR) + "/ATX_A.ttf").c_str(), empty.path("ATX_A.ttf").c_str()), 0);
  r = runGame("--data " + empty.dir() + " --frames 1");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("NewGame.sav"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("No such file"), std::string::npos) << r.err;
}

TEST(Startup, ScriptTakesScreenshotsPrintsStateAndQuits) {
  TempDir tmp;
  const std::string shot = tmp.path("shot.bmp");
  const std::string script = "at 0 state\nat 3 screenshot " + shot + "\nat 4 key down escape\n";
  const RunResult r = runGame("--unthrottled --frames 100 --script " + tmp.write("s.txt", script));
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out.rfind("STATE {\"mode\":", 0), 0u) << r.out;
  const SurfacePtr image(SDL_LoadBMP(shot.c_str()));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->w, 800);
  EXPECT_EQ(image->h, 600);
}

TEST(Startup, SeedMakesARunRepeat) {
  TempDir tmp;
  const std::string args = "--unthrottled --frames 20 --seed 5 --script " + tmp.write("s.txt", "at 20 state\n");
  // The frame-rate counters follow the wall clock; everything else must repeat.
  const std::regex clock("\"(frameRateStart|framesCounted)\":[0-9]+");
  const RunResult a = runGame(args), b = runGame(args);
  EXPECT_EQ(a.status, 0);
  EXPECT_NE(a.out.find("STATE"), std::string::npos);
  EXPECT_EQ(std::regex_replace(a.out, clock, ""), std::regex_replace(b.out, clock, ""));
}
