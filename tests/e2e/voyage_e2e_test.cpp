// The kept voyage through the real game: it is written on Escape and on the
// close request and read back the same in every mode, a broken one is set
// aside for its backup or the new game, a failed write loses nothing, a kill
// at any moment leaves a whole voyage, and a lost X display ends the game.
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <sstream>
#include <thread>

#include "shell/saved_game.h"
#include "shell/saved_game_writer.h"
#include "support/test_support.h"

namespace {

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// Runs the game on `data` with the voyage `voyage`: a state line at frame 1, then `exit` at frame 3.
RunResult runVoyage(const std::string& data, const std::string& voyage, const std::string& exit = "key down escape") {
  return runScript("at 1 state\nat 3 " + exit + "\n", "--data " + data + " --voyage " + voyage + " --log-stdout");
}

// Starts the program with arguments, standard output and error into `out`, and extra environment.
pid_t spawn(std::vector<std::string> args, const std::string& out, std::vector<std::string> env = {}) {
  const pid_t pid = fork();
  if (pid != 0) return pid;
  const int fd = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  dup2(fd, 1);
  dup2(fd, 2);
  for (std::string& variable : env) putenv(variable.data());
  std::vector<char*> argv;
  for (std::string& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  execvp(argv[0], argv.data());
  _exit(127);
}

// Polls until `ready` holds, for at most ten seconds; the bound only stops a hung run.
template <typename F>
bool waitFor(F ready) {
  for (int i = 0; i < 1000; ++i) {
    if (ready()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

}  // namespace

TEST(VoyageEndToEnd, EveryModeComesBackAsItWasLeft) {
  struct Row {
    int mode, starX, starY, sysX, sysY, planet;
    const char *shipHold, *roverHold, *exit;
  } rows[] = {
      {0, 100, 96, 140, 2, 0, "1.25 0 7.5 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 3", "0.1 0.2", "key down escape"},
      {1, 100, 100, 140, 2, 0, "0 3.3333333 0 12", "2 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1.75", "quit"},
      {2, 100, 100, 140, 2, 2, "0.7 0.7 0.7", "", "key down escape"},
      {3, 100, 100, 140, 2, 4, "40 0.05", "9.99 0 0 0.01", "quit"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE("mode " + std::to_string(row.mode));
    TempDir tmp;
    const std::string data = dataCopyWithSave(tmp, row.mode, row.starX, row.starY, row.sysX, row.sysY, row.planet,
                                              row.shipHold, row.roverHold);
    const std::string voyage = tmp.path("keep/voyage.sav");
    const RunResult first = runVoyage(data, voyage, row.exit);
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_TRUE(contains(first.out, "New voyage"));
    const std::string written = readFile(voyage);
    // Every amount is written exactly: the hold lines (the last two) read back as the floats given.
    std::istringstream in(written.substr(written.rfind('\n', written.rfind('\n', written.size() - 2) - 1)));
    for (const char* given : {row.shipHold, row.roverHold}) {
      std::istringstream expected(given);
      for (std::string want, got; expected >> want && in >> got;) EXPECT_EQ(std::stof(got), std::stof(want)) << given;
      in.ignore(1000, '\n');
    }
    const RunResult second = runVoyage(data, voyage, row.exit);
    ASSERT_EQ(second.status, 0) << second.err;
    EXPECT_TRUE(contains(second.out, "Voyage continued"));
    const std::vector<std::string> before = stateLines(first.out), after = stateLines(second.out);
    ASSERT_TRUE(before.size() == 1 && after.size() == 1);
    EXPECT_EQ(stateNumber(after[0], "mode"), row.mode);
    for (const char* field : {"mode", "posX", "posY", "sysX", "sysY", "currentPlanet", "shipName", "engine", "shield",
                              "powerPlant", "weapons", "shipHold", "roverHold", "shipHoldFree", "roverHoldFree"}) {
      EXPECT_EQ(stateField(after[0], field), stateField(before[0], field)) << field;
    }
    // What was read back is written back to the byte: no amount drifts from run to run.
    EXPECT_EQ(readFile(voyage), written);
  }
}

TEST(VoyageEndToEnd, ThePlayersVoyageIsInTheDataHomeAndScriptedRunsLeaveIt) {
  TempDir tmp;
  const std::string torn = "Surveyor\nTorn Sail\n";
  tmp.write("xdg/prospector/voyage.sav", torn);
  tmp.write("home/.local/share/prospector/voyage.sav", torn);
  for (const std::string& place : {"XDG_DATA_HOME=" + tmp.path("xdg"), "XDG_DATA_HOME= HOME=" + tmp.path("home")}) {
    const RunResult check = runGame("--check", place);
    EXPECT_EQ(check.status, 1);
    EXPECT_TRUE(contains(check.out, "prospector/voyage.sav: Saved game: ends before")) << place << check.out;
  }
  const RunResult scripted = runGame("--log-stdout --script " + tmp.write("s.txt", "at 2 key down escape\n"),
                                     "XDG_DATA_HOME=" + tmp.path("xdg"));
  EXPECT_TRUE(scripted.status == 0 && !contains(scripted.out, "voyage")) << scripted.out;
  EXPECT_EQ(readFile(tmp.path("xdg/prospector/voyage.sav")), torn);
}

TEST(VoyageEndToEnd, ABrokenVoyageIsKeptAsideForTheBackupThenTheNewGame) {
  TempDir tmp;
  const std::string data = dataCopy(tmp);
  std::string backup = readFile(data + "/NewGame.sav");
  backup.replace(backup.find("Wandering Lark"), 14, "Second Wind");
  const std::string torn = "Surveyor\nTorn Sail\n12\n", garbage = std::string("\x00\xff#\n\n", 5);
  const std::string voyage = tmp.write("v.sav", torn);
  tmp.write("v.sav.bak", backup);

  const RunResult check = runGame("--check --voyage " + voyage + " --data " + data);
  EXPECT_EQ(check.status, 1);
  EXPECT_TRUE(contains(check.out, "v.sav: Saved game: ends before the rover's hold line")) << check.out;

  RunResult r = runVoyage(data, voyage);
  ASSERT_EQ(r.status, 0) << r.err;
  for (const char* step :
       {"v.sav could not be read; kept as v.sav.broken", "Trying the backup v.sav.bak", "Voyage continued"}) {
    EXPECT_TRUE(contains(r.out, step)) << step;
  }
  EXPECT_EQ(stateField(stateLines(r.out).at(0), "shipName"), "\"Second Wind\"");
  EXPECT_EQ(readFile(voyage + ".broken"), torn);

  tmp.write("v.sav", garbage);
  tmp.write("v.sav.bak", torn);
  r = runVoyage(data, voyage);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(contains(r.out, "v.sav.bak could not be read; kept as v.sav.bak.broken"));
  EXPECT_TRUE(contains(r.out, "New voyage"));
  EXPECT_EQ(stateField(stateLines(r.out).at(0), "shipName"), "\"Wandering Lark\"");
  EXPECT_EQ(readFile(voyage + ".broken"), garbage);
  EXPECT_EQ(readFile(voyage + ".bak.broken"), torn);
}

TEST(VoyageEndToEnd, AFailedWriteLeavesTheVoyageAndTheGameGoesOn) {
  TempDir tmp;
  const std::string data = dataCopy(tmp);
  const std::string kept = readFile(data + "/NewGame.sav");
  const std::string voyage = tmp.write("ro/v.sav", kept);
  // Root ignores the directory's mode bits; a directory in the temporary file's place stops it too.
  ASSERT_EQ(mkdir(tmp.path("ro/v.sav.tmp").c_str(), 0755), 0);
  ASSERT_EQ(chmod(tmp.path("ro").c_str(), 0555), 0);
  const RunResult r = runScript("at 2 state\nat 20 state\nat 21 key down escape\n",
                                "--data " + data + " --voyage " + voyage + " --log-stdout --autosave 0");
  chmod(tmp.path("ro").c_str(), 0755);
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stateLines(r.out).size(), 2u) << "the game stopped after the failed write";
  EXPECT_TRUE(contains(r.out, "Couldn't save the voyage; the last saved one is kept")) << r.out;
  EXPECT_TRUE(contains(r.err, "couldn't save the voyage")) << r.err;
  EXPECT_EQ(readFile(voyage), kept);
  EXPECT_FALSE(std::filesystem::exists(voyage + ".bak"));
}

TEST_F(GameTest, KilledAtAnyMomentOfItsAutosavesTheVoyageIsWhole) {
  // The voyage a new game writes, made here by the game's own loader and writer.
  ASSERT_TRUE(loadGame("NewGame.sav"));
  const std::string expected = savedGameText();
  TempDir tmp;
  const std::string voyage = tmp.path("v.sav");
  const pid_t game = spawn({PROSPECTOR_BINARY, "--data", PROSPECTOR_DATA_DIR, "--voyage", voyage, "--autosave", "0",
                            "--unthrottled", "--frames", "100000000"},
                           tmp.path("out.txt"));
  ASSERT_TRUE(waitFor([&] { return std::filesystem::exists(voyage); }));
  // A stopped process leaves on disk exactly what a kill at that moment would; the
  // game writes the voyage every frame, so the moments fall all over its writes.
  std::mt19937 random(20);
  for (int moment = 0; moment < 200; ++moment) {
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
    kill(game, SIGSTOP);
    int status = 0;
    waitpid(game, &status, WUNTRACED);
    ASSERT_EQ(readFile(voyage), expected) << "moment " << moment;
    if (std::filesystem::exists(voyage + ".bak")) {
      ASSERT_EQ(readFile(voyage + ".bak"), expected);
    }
    kill(game, SIGCONT);
  }
  std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
  kill(game, SIGKILL);
  waitpid(game, nullptr, 0);
  EXPECT_EQ(readFile(voyage), expected);
}

TEST(VoyageEndToEnd, ALostDisplaySavesTheVoyageAndEndsTheGame) {
  if (std::system("command -v Xvfb >/dev/null 2>&1") != 0) GTEST_SKIP() << "Xvfb is not installed";
  TempDir tmp;
  const std::string voyage = tmp.path("v.sav"), log = tmp.path("game.txt"), display = tmp.path("display.txt");
  const pid_t server = spawn({"Xvfb", "-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp"}, display);
  // The server writes its display number on a line of its own, among whatever else it says.
  std::smatch found;
  std::string said;
  ASSERT_TRUE(
      waitFor([&] { return std::regex_search(said = readFile(display), found, std::regex("(^|\\n)([0-9]+)\\n")); }));
  const std::string number = found[2];
  const pid_t game = spawn(
      {PROSPECTOR_BINARY, "--data", PROSPECTOR_DATA_DIR, "--voyage", voyage, "--log-stdout", "--frames", "100000000"},
      log, {"DISPLAY=:" + number, "SDL_VIDEODRIVER=x11"});
  const bool running = waitFor([&] { return contains(readFile(log), "Entering mainloop"); });
  kill(server, SIGTERM);
  waitpid(server, nullptr, 0);
  ASSERT_TRUE(running) << readFile(log);
  int status = -1;
  const bool ended = waitFor([&] { return waitpid(game, &status, WNOHANG) == game; });
  if (!ended) kill(game, SIGKILL);
  ASSERT_TRUE(ended) << "the game went on without its display";
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  EXPECT_TRUE(contains(readFile(log), "lost the connection to the X display"));
  EXPECT_TRUE(contains(readFile(voyage), "Wandering Lark"));
}
