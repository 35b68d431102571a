#include "support/test_support.h"

TEST(Startup, VideoThatCannotStartEndsWithStatusOne) {
  const RunResult r = runGame("--frames 5", "SDL_VIDEODRIVER=no-such-driver");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err.rfind("Couldn't initialize SDL: ", 0), 0u) << r.err;
}

TEST(Startup, BadOptionsAndScriptsShowWhatIsWrong) {
  TempDir tmp;
  const std::string script = tmp.write("bad.txt", "at 1 state\nat 2 key down nokey\n");
  const struct {
    std::string arguments, message;
  } cases[] = {{"--warp 9", "unknown option '--warp'"},
               {"--scale 5", "--scale takes a whole number from 1 to 4, not '5'"},
               {"--scale", "--scale needs a value"},
               {"--script " + script, script + ":2: expected a key name or number, not 'nokey'"}};
  for (const auto& c : cases) {
    const RunResult r = runGame(c.arguments);
    EXPECT_EQ(r.status, 2) << c.arguments;
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    EXPECT_EQ(stateLines(r.out).size(), 0u) << "the game ran: " << c.arguments;
  }
  EXPECT_NE(runGame("--warp 9").err.find("usage: prospector"), std::string::npos);
  const RunResult help = runGame("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("--script FILE"), std::string::npos);
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

TEST(Startup, SeedMakesARunRepeat) {
  const std::string args = "--frames 20 --seed 5";
  // The frame-rate counters follow the wall clock; everything else must repeat.
  const std::regex clock("\"(frameRateStart|framesCounted)\":[0-9]+");
  const RunResult a = runScript("at 20 state\n", args), b = runScript("at 20 state\n", args);
  EXPECT_EQ(a.status, 0);
  EXPECT_NE(a.out.find("STATE"), std::string::npos);
  EXPECT_EQ(std::regex_replace(a.out, clock, ""), std::regex_replace(b.out, clock, ""));
}
