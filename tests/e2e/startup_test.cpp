#include "support/test_support.h"

// What stops the game before it runs ends it with a status and a message saying what is wrong; --help, with usage.
TEST(Startup, BadOptionsScriptsVideoFontOrSavedGameEndWithAClearMessage) {
  TempDir tmp, empty, fontOnly;
  const std::string script = tmp.write("bad.txt", "at 1 state\nat 2 key down nokey\n");
  ASSERT_EQ(symlink(PROSPECTOR_DATA_DIR "/ATX_A.ttf", fontOnly.path("ATX_A.ttf").c_str()), 0);
  const struct {
    std::string arguments, environment;
    int status;
    std::vector<std::string> messages;
  } cases[] = {
      {"--help", "", 0, {"--script FILE"}},
      {"--warp 9", "", 2, {"unknown option '--warp'", "usage: prospector"}},
      {"--scale 5", "", 2, {"--scale takes a whole number from 1 to 4, not '5'"}},
      {"--scale", "", 2, {"--scale needs a value"}},
      {"--script " + script, "", 2, {script + ":2: expected a key name or number, not 'nokey'"}},
      {"--frames 5", "SDL_VIDEODRIVER=no-such-driver", 1, {"Couldn't initialize SDL: "}},
      {"--data " + empty.dir() + " --frames 1", "", 1, {"ATX_A.ttf", "scripts/install-deps"}},
      {"--data " + fontOnly.dir() + " --frames 1", "", 1, {"NewGame.sav", "No such file"}},
      {"--data " + tmp.path("gone"), "", 2, {"can't use the data directory " + tmp.path("gone")}},
      {"--frames 1 --frame-times " + tmp.path("no/dir/t.txt"), "", 2, {"can't write the frame times to"}},
  };
  for (const auto& c : cases) {
    const RunResult r = runGame(c.arguments, c.environment);
    EXPECT_EQ(r.status, c.status) << c.arguments;
    const std::string& shown = c.status ? r.err : r.out;  // errors on the error stream, help on the output
    for (const std::string& message : c.messages) EXPECT_NE(shown.find(message), std::string::npos) << shown;
    EXPECT_EQ(stateLines(r.out).size(), 0u) << "the game ran: " << c.arguments;
  }
}
