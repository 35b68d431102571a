#include "support/test_support.h"

// A copy of the program with no data installed beside it and none in the current directory names where it looked.
TEST(DataCheck, WithoutDataTheGameNamesWhereItLooked) {
  TempDir tmp;
  std::filesystem::create_directory(tmp.path("bin"));
  std::filesystem::copy_file(PROSPECTOR_BINARY, tmp.path("bin/prospector"));
  const RunResult r = runShell("cd '" + tmp.dir() + "' && bin/prospector --frames 1");
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.out.find("no game data (NewGame.sav) in " + tmp.path("share/prospector") + " and " + tmp.dir()),
            std::string::npos)
      << r.out;
}

// One copy of the data with faults in every kind of file, each reported with its file and line.
TEST(DataCheck, ReportsEachProblemWithItsFileAndLine) {
  const std::pair<const char*, std::string> files[] = {
      {"Starmap.txt",
       "# a map with faults\n12\n40\nG\nLane 3\n1\n"  // lines 2-6, then a planet: hydrosphere at 18, mineral at 19
       "3\n60\n23\n1.0\n-20\n30\n0\n200\nNitrogen\nOxygen\nArgon\nMud\nKryptonite\nNickel\nGold\nClear\n1234\n"
       "20\n20\nPulsar\nNone\n0\n"  // 24-28: no such class
       "1\n2\nG\n"},                // cut short
      {"NewGame.sav",
       "Surveyor\nLark\n100\n96\n140\n2\n0\n"                           // lines 1-7
       "7\n"                                                            // 8: no such mode
       "Kestrel\nAegis\nNowhere\n"                                      // 9-11: no such power plant
       "PulseLaser\n\nMiningLaser\n"                                    // 12-14: hardpoint 2 empty
       "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23\n"  // 15
       "0\n"},
      {"Ships/Surveyor.txt", "# a ship with faults\nSurveyor\nFreighter\n100\n4\n3\n10,20, 30\n"},  // 7: odd markers
      {"Engines/Kestrel.txt", "# nothing but a comment\n"},
      {"PlanetColor.txt", "0 1\n"}};
  TempDir tmp;
  const std::string data = dataCopy(tmp);
  for (const auto& [file, content] : files) std::ofstream(data + "/" + file) << content;
  for (const char* image : {"Ships/Rover.bmp", "Ships/Surveyor_large.bmp", "Buttons/Down_select.bmp", "ATX_A.ttf"})
    std::ofstream(data + "/" + image);  // empty, so unreadable
  const RunResult r = runGame("--check --data " + data);
  EXPECT_EQ(r.status, 1) << r.out;
  for (const std::string& line : std::vector<std::string>{
           "Starmap.txt:18: hydrosphere 'Mud' has no colour table",
           "Starmap.txt:19: lithosphere 'Kryptonite' is none of the 22 minerals",
           "Starmap.txt:26: class 'Pulsar' is none of the ten known", "Starmap.txt: the file ends inside the object",
           "NewGame.sav:8: Saved game: mode 7 is not 0 to 3", "PowerPlants/Nowhere.txt: Couldn't open",
           "NewGame.sav:13: Saved game: hardpoint 2 has no weapon named",
           "NewGame.sav:15: Saved game: 23 numbers on the ship's hold line",
           "Ships/Surveyor.txt:7: Ship file: odd number of coordinates for the engine markers",
           "Ships/Surveyor.txt: Ship file: ends after", "Engines/Kestrel.txt: ends after 0 of its 2 lines",
           "PlanetColor.txt: only 0 of the 8 colour tables complete", "Ships/Rover.bmp: Couldn't load",
           "Ships/Surveyor_large.bmp: Couldn't load", "Buttons/Down_select.bmp: Couldn't load",
           "ATX_A.ttf: Couldn't open the game font", data + ": 20 problems found\n"})
    EXPECT_NE(r.out.find(line), std::string::npos) << line << "\n" << r.out;
}
