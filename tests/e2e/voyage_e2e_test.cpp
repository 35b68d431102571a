// The kept voyage through the real game: written on Escape and on the close request and read back the same in
// every mode, a broken one set aside for its backup or the new game, and a failed write losing nothing.
#include <sys/stat.h>

#include <sstream>

#include "shell/saved_game.h"
#include "shell/saved_game_writer.h"
#include "support/test_support.h"

static bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST_F(GameTest, EveryModeComesBackAsItWasLeftOnEscapeOrClose) {
  const struct {
    int mode, starY, planet;
    const char *shipHold, *roverHold, *exit;
  } rows[] = {
      {0, 96, 0, "1.25 0 7.5 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 3", "0.1 0.2", "key down escape"},
      {1, 100, 0, "0 3.3333333 0 12", "2 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1.75", "quit"},
      {2, 100, 2, "0.7 0.7 0.7", "", "key down escape"},
      {3, 100, 4, "40 0.05", "9.99 0 0 0.01", "quit"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE("mode " + std::to_string(row.mode));
    TempDir tmp;
    const std::string data =
        dataCopyWithSave(tmp, row.mode, 100, row.starY, 140, 2, row.planet, row.shipHold, row.roverHold);
    ASSERT_TRUE(loadGame((data + "/NewGame.sav").c_str()));
    const std::string kept = savedGameText(), voyage = tmp.write("v.sav", "# left earlier\n" + kept);
    // Every amount is written exactly: the hold lines (the last two) read back as the floats given.
    std::istringstream in(kept.substr(kept.rfind('\n', kept.rfind('\n', kept.size() - 2) - 1)));
    for (const char* given : {row.shipHold, row.roverHold}) {
      std::istringstream expected(given);
      for (std::string want, got; expected >> want && in >> got;) EXPECT_EQ(std::stof(got), std::stof(want)) << given;
      in.ignore(1000, '\n');
    }
    // The game continues it and writes it anew on leaving, to the byte: nothing is lost or drifts.
    const RunResult r = runScript("at 1 state\nat 3 " + std::string(row.exit) + "\n",
                                  "--data " + data + " --voyage " + voyage + " --log-stdout");
    EXPECT_TRUE(r.status == 0 && has(r.out, "Voyage continued")) << r.err;
    EXPECT_EQ(stateNumber(stateLines(r.out).at(0), "mode"), row.mode);
    EXPECT_EQ(readFile(voyage), kept);
    EXPECT_EQ(readFile(voyage + ".bak"), "# left earlier\n" + kept);
  }
}

TEST(VoyageEndToEnd, ABrokenVoyageIsKeptAsideForTheBackupThenTheNewGameAndAFailedWriteLosesNothing) {
  TempDir tmp;
  const std::string data = dataCopy(tmp);
  std::string backup = readFile(data + "/NewGame.sav");
  backup.replace(backup.find("Wandering Lark"), 14, "Second Wind");
  const std::string torn = "Surveyor\nTorn Sail\n12\n", garbage = std::string("\x00\xff#\n\n", 5);
  const std::string voyage = tmp.write("v.sav", torn);
  // --check reads the named voyage, else the player's in the data home; scripted runs leave that one alone.
  tmp.write("xdg/prospector/voyage.sav", torn);
  tmp.write("home/.local/share/prospector/voyage.sav", torn);
  const std::string xdg = "XDG_DATA_HOME=" + tmp.path("xdg");
  for (const auto& [arguments, place] :
       {std::pair("--voyage " + voyage, std::string()), {"", xdg}, {"", "XDG_DATA_HOME= HOME=" + tmp.path("home")}}) {
    const RunResult check = runGame("--check " + arguments, place);
    EXPECT_EQ(check.status, 1) << place;
    EXPECT_TRUE(has(check.out, ".sav: Saved game: ends before the rover's hold line")) << place << check.out;
  }
  const RunResult scripted =
      runGame("--log-stdout --autosave 0 --script " + tmp.write("s.txt", "at 2 key down escape\n"), xdg);
  EXPECT_TRUE(scripted.status == 0 && !has(scripted.out, "voyage")) << scripted.out;
  EXPECT_EQ(readFile(tmp.path("xdg/prospector/voyage.sav")), torn);

  // A broken voyage is set aside for its backup, a broken backup for the new game.
  for (const auto& [text, backupText, ship, end] :
       {std::tuple(torn, backup, "\"Second Wind\"", "Voyage continued"),
        {garbage, torn, "\"Wandering Lark\"", "v.sav.bak could not be read; kept as v.sav.bak.broken"}}) {
    tmp.write("v.sav", text);
    tmp.write("v.sav.bak", backupText);
    const RunResult r =
        runScript("at 1 state\nat 3 key down escape\n", "--data " + data + " --voyage " + voyage + " --log-stdout");
    ASSERT_EQ(r.status, 0) << r.err;
    for (const char* step : {"v.sav could not be read; kept as v.sav.broken", "Trying the backup v.sav.bak", end})
      EXPECT_TRUE(has(r.out, step)) << step;
    EXPECT_EQ(stateField(stateLines(r.out).at(0), "shipName"), ship);
    EXPECT_EQ(readFile(voyage + ".broken"), text);
  }
  EXPECT_EQ(readFile(voyage + ".bak.broken"), torn);

  // A failed write leaves the voyage as it was, says so, and the game goes on: the voyage is only ever replaced
  // whole, by a finished temporary file. Root ignores the directory's mode bits; a directory in that file's place
  // stops it too.
  const std::string kept = readFile(data + "/NewGame.sav"), readOnly = tmp.write("ro/v.sav", kept);
  ASSERT_TRUE(mkdir(tmp.path("ro/v.sav.tmp").c_str(), 0755) == 0 && chmod(tmp.path("ro").c_str(), 0555) == 0);
  const RunResult r = runScript("at 2 state\nat 20 state\nat 21 key down escape\n",
                                "--data " + data + " --voyage " + readOnly + " --log-stdout --autosave 0");
  chmod(tmp.path("ro").c_str(), 0755);
  EXPECT_EQ(std::pair(r.status, stateLines(r.out).size()), std::pair(0, std::size_t{2})) << r.err;
  EXPECT_TRUE(has(r.out, "Couldn't save the voyage; the last saved one is kept")) << r.out;
  EXPECT_TRUE(has(r.err, "couldn't save the voyage")) << r.err;
  EXPECT_EQ(readFile(readOnly), kept);
  EXPECT_FALSE(std::filesystem::exists(readOnly + ".bak"));
  // So does a write the disk refuses, and a broken voyage that cannot be set aside is never written over.
  const std::string full = tmp.write("full/v.sav", kept), stuck = tmp.write("stuck/v.sav", torn);
  std::filesystem::create_symlink("/dev/full", full + ".tmp");
  tmp.write("stuck/v.sav.broken/in the way", "");
  for (const std::string& path : {full, stuck})
    EXPECT_EQ(runScript("at 2 key down escape\n", "--data " + data + " --voyage " + path).status, 0) << path;
  EXPECT_TRUE(!std::filesystem::is_symlink(full) && readFile(full) == kept && readFile(stuck) == torn);
}
