// Installing the game into a prefix and checking data files, through the real binary.
#include "support/test_support.h"

namespace fs = std::filesystem;

TEST(Install, InstalledGameFindsItsDataFromAnyDirectoryAndNamesWhereItLookedWithoutIt) {
  TempDir tmp;
  const std::string prefix = tmp.path("prefix"), elsewhere = tmp.path("elsewhere");
  const RunResult install = runShell("cmake --install '" + fs::path(PROSPECTOR_BINARY).parent_path().string() +
                                     "' --prefix '" + prefix + "'");
  ASSERT_EQ(install.status, 0) << install.out;
  fs::create_directory(elsewhere);
  RunResult r = runShell("cd '" + elsewhere + "' && '" + prefix + "/bin/prospector' --check");
  EXPECT_EQ(r.status, 0) << r.out;
  EXPECT_EQ(r.out.rfind(prefix + "/share/prospector: data clean: ", 0), 0u) << r.out;
  fs::copy_file(prefix + "/bin/prospector", elsewhere + "/prospector");
  r = runShell("cd '" + elsewhere + "' && ./prospector --frames 1");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.out.find("no game data (NewGame.sav) in " + tmp.dir() + "/share/prospector and " + elsewhere), r.out.npos)
      << r.out;
}

TEST(DataCheck, ReportsEachProblemWithItsFileAndLine) {
  const std::string starmap =
      "# a map with faults\n"
      "12\n40\nG\nLane 3\n1\n"  // lines 2-6, then a planet: its hydrosphere at 18, its first mineral at 19
      "3\n60\n23\n1.0\n-20\n30\n0\n200\nNitrogen\nOxygen\nArgon\nMud\nKryptonite\nNickel\nGold\nClear\n1234\n"
      "20\n20\nPulsar\nNone\n0\n";  // 24-28: no such class
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
    std::vector<std::string> expected;
  } cases[] = {
      {"star map",
       {{"Starmap.txt", starmap}},
       {"Starmap.txt:18: hydrosphere 'Mud' has no colour table",
        "Starmap.txt:19: lithosphere 'Kryptonite' is none of the 22 minerals",
        "Starmap.txt:26: class 'Pulsar' is none of the ten known"}},
      {"star map cut short", {{"Starmap.txt", "1\n2\nG\n"}}, {"Starmap.txt: the file ends inside the object"}},
      {"saved game",
       {{"NewGame.sav", savedGame}},
       {"NewGame.sav:8: Saved game: mode 7 is not 0 to 3", "PowerPlants/Nowhere.txt: Couldn't open",
        "NewGame.sav:13: Saved game: hardpoint 2 has no weapon named",
        "NewGame.sav:15: Saved game: 23 numbers on the ship's hold line"}},
      {"ship, component and colour files",
       {{"Ships/Surveyor.txt", ship},
        {"Engines/Kestrel.txt", "# nothing but a comment\n"},
        {"PlanetColor.txt", "0 1\n"}},
       {"Ships/Surveyor.txt:6: Ship file: 12 hardpoints is outside 0 to 10",
        "Ships/Surveyor.txt:7: Ship file: odd number of coordinates for the engine markers",
        "Ships/Surveyor.txt: Ship file: ends after", "Engines/Kestrel.txt: ends after 0 of its 2 lines",
        "PlanetColor.txt: only 0 of the 8 colour tables complete"}},
      {"images and font",
       {{"Ships/Rover.bmp", ""}, {"Ships/Surveyor_large.bmp", ""}, {"Buttons/Down_select.bmp", ""}, {"ATX_A.ttf", ""}},
       {"Ships/Rover.bmp: Couldn't load", "Ships/Surveyor_large.bmp: Couldn't load",
        "Buttons/Down_select.bmp: Couldn't load", "ATX_A.ttf: Couldn't open the game font"}},
  };
  for (const auto& c : cases) {
    TempDir tmp;
    const std::string data = dataCopy(tmp);
    for (const auto& [file, content] : c.files) std::ofstream(data + "/" + file) << content;
    const RunResult r = runGame("--check --data " + data);
    EXPECT_EQ(r.status, 1) << c.name << "\n" << r.out;
    for (const std::string& line : c.expected)
      EXPECT_NE(("\n" + r.out).find("\n" + line), std::string::npos) << c.name << ": " << line << "\n" << r.out;
    EXPECT_TRUE(r.out.find(data + ": ") != r.out.npos && r.out.find(" found\n") != r.out.npos) << r.out;
  }
}
