// Installing the game into a prefix and checking data files, through the real binary.
#include "support/test_support.h"

namespace fs = std::filesystem;

// Most data-check rows remove no file and leave that list out.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

// Seventeen lines of one planet, the hydrosphere and lithosphere as given.
static std::string planet(int lane, const char* hydro = "Water", const char* litho = "Iron") {
  return std::to_string(lane) + "\n60\n23\n1.0\n-20\n30\n0\n200\nNitrogen\nOxygen\nArgon\n" + hydro + "\n" + litho +
         "\nNickel\nGold\nClear\n1234\n";
}

TEST(Install, InstalledGameFindsItsDataFromAnyDirectory) {
  TempDir tmp;
  const std::string prefix = tmp.path("prefix"), buildDir = fs::path(PROSPECTOR_BINARY).parent_path();
  const RunResult install = runShell("cmake --install '" + buildDir + "' --prefix '" + prefix + "'");
  ASSERT_EQ(install.status, 0) << install.out;
  for (const char* file :
       {"bin/prospector", "share/prospector/NewGame.sav", "share/prospector/ATX_A.ttf", "share/prospector/Stars/M.bmp",
        "share/prospector/Ships/Surveyor_large.bmp", "share/applications/prospector.desktop",
        "share/pixmaps/prospector.xpm", "share/man/man6/prospector.6"})
    EXPECT_TRUE(fs::exists(fs::path(prefix) / file)) << file;
  const std::string man = readFile(prefix + "/share/man/man6/prospector.6");
  EXPECT_NE(man.find(".SH FILES\n.TP\n.I " + prefix + "/share/prospector/\n"), std::string::npos) << man;

  // Started from a directory without data, with no --data.
  fs::create_directory(tmp.path("elsewhere"));
  const std::string game =
      "cd '" + tmp.path("elsewhere") + "' && SDL_VIDEODRIVER=dummy '" + prefix + "/bin/prospector'";
  RunResult r = runShell(game + " --frames 5 --unthrottled");
  EXPECT_EQ(r.status, 0) << r.out;
  r = runShell(game + " --check");
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_EQ(r.out.rfind(prefix + "/share/prospector: data clean: ", 0), 0u) << r.out;
  EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 1) << "nothing but the one line, on either stream";

  // A program with no data beside it and none here names where it looked.
  fs::copy_file(prefix + "/bin/prospector", tmp.path("elsewhere/prospector"));
  r = runShell("cd '" + tmp.path("elsewhere") + "' && ./prospector --frames 1");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.out.find("no game data (NewGame.sav) in " + tmp.dir() + "/share/prospector and " + tmp.path("elsewhere")),
            std::string::npos)
      << r.out;
  EXPECT_NE(r.out.find("--data DIR"), std::string::npos) << r.out;

  // Uninstalling removes every installed file and the data directory.
  r = runShell("cmake -DBUILD_DIR='" + buildDir + "' -P '" PROSPECTOR_SOURCE_DIR "/cmake/Uninstall.cmake'");
  EXPECT_EQ(r.status, 0) << r.out;
  for (const char* file : {"/bin/prospector", "/share/prospector", "/share/applications/prospector.desktop"})
    EXPECT_FALSE(fs::exists(prefix + file)) << file;
}

TEST(DataCheck, ReportsEachProblemWithItsFileAndLine) {
  const std::string starmap =
      "# a map with faults\n"
      "12\n40\nG\nLane 3\n2\n" +        // lines 2-6
      planet(11) +                      // 7-23: lane 11
      planet(3, "Mud", "Kryptonite") +  // 24-40: hydro at 35, first mineral at 36
      "12\n40\nK\nLane 2\n0\n"          // 41-45: the same cell again
      "600\n5\nM\nLane 1\n0\n"          // 46-50: off the map
      "20\n20\nPulsar\nNone\n0\n";      // 51-55: no such class
  const std::string savedGame =
      "Surveyor\nLark\n100\n96\n140\n2\n0\n"                           // lines 1-7
      "7\n"                                                            // 8: no such mode
      "Kestrel\nAegis\nNowhere\n"                                      // 9-11: no such power plant
      "PulseLaser\n\nMiningLaser\n"                                    // 12-14: hardpoint 2 empty
      "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23\n"  // 15
      "0\n";
  const std::string ship =
      "# a ship with faults\nSurveyor\nFreighter\n100\n4\n"
      "12\n"          // line 6: too many hardpoints
      "10,20, 30\n";  // line 7: odd number of coordinates
  const struct {
    const char* name;
    std::vector<std::pair<std::string, std::string>> files;  // written over the copy
    std::vector<std::string> expected, removed;
  } cases[] = {
      {"star map",
       {{"Starmap.txt", starmap}},
       {"Starmap.txt:7: planet lane 11 is outside 0..9", "Starmap.txt:35: hydrosphere 'Mud' has no colour table",
        "Starmap.txt:36: lithosphere 'Kryptonite' is none of the 22 minerals",
        "Starmap.txt:42: a second object at 12, 40 replaces the first",
        "Starmap.txt:47: position 600, 5 is off the map", "Starmap.txt:53: class 'Pulsar' is none of the ten known"}},
      {"star map cut short", {{"Starmap.txt", "1\n2\nG\n"}}, {"Starmap.txt: the file ends inside the object"}},
      {"saved game",
       {{"NewGame.sav", savedGame}},
       {"NewGame.sav:8: Saved game: mode 7 is not 0 to 3", "PowerPlants/Nowhere.txt: Couldn't open",
        "NewGame.sav:13: Saved game: hardpoint 2 has no weapon named",
        "NewGame.sav:15: Saved game: 23 numbers on the ship's hold line"}},
      {"ship file",
       {{"Ships/Surveyor.txt", ship}},
       {"Ships/Surveyor.txt:6: Ship file: 12 hardpoints is outside 0 to 10",
        "Ships/Surveyor.txt:7: Ship file: odd number of coordinates for the engine markers",
        "Ships/Surveyor.txt: Ship file: ends after"}},
      {"component and colour files",
       {{"Engines/Kestrel.txt", "# nothing but a comment\n"}, {"PlanetColor.txt", "0 1 2 3\n"}},
       {"Engines/Kestrel.txt: ends after 0 of its 2 lines", "PlanetColor.txt: only 0 of the 8 colour tables complete"}},
      {"images and font",
       {},
       {"Stars/O.bmp: Can't load star image", "Ships/Rover.bmp: Couldn't load",
        "Ships/Surveyor_large.bmp: Couldn't load", "Buttons/Down_select.bmp: Couldn't load",
        "ATX_A.ttf: Couldn't open the game font"},
       {"Stars/O.bmp", "Ships/Rover.bmp", "Ships/Surveyor_large.bmp", "Buttons/Down_select.bmp", "ATX_A.ttf"}},
  };
  for (const auto& c : cases) {
    TempDir tmp;
    const std::string data = dataCopy(tmp);
    for (const auto& [file, content] : c.files) std::ofstream(data + "/" + file) << content;
    for (const std::string& file : c.removed) fs::remove(data + "/" + file);
    const RunResult r = runGame("--check --data " + data);
    EXPECT_EQ(r.status, 1) << c.name << "\n" << r.out;
    for (const std::string& line : c.expected)
      EXPECT_NE(("\n" + r.out).find("\n" + line), std::string::npos) << c.name << ": " << line << "\n" << r.out;
    EXPECT_TRUE(r.out.find(data + ": ") != r.out.npos && r.out.find(" found\n") != r.out.npos) << r.out;
  }
}
