#include "support/test_support.h"

static std::string objectLines(int x, int y, const std::string& cls, const std::string& eco, int planets) {
  return std::to_string(x) + "\n" + std::to_string(y) + "\n" + cls + "\n" + eco + "\n" + std::to_string(planets) + "\n";
}

// Seventeen lines, from the lane to the seed, so that each field sits at a known line of the file.
static std::string planetLines(int lane, int seed) {
  return std::to_string(lane) + "\n5\n24\n1.25\n-10\n30\n7\n120\nNitrogen\nOxygen\nArgon\nWater\nIron\nGold\nTin\n" +
         "Light Rain\n" + std::to_string(seed) + "\n";
}

static std::string describe(const Planet* p) {
  if (!p) return "none";
  char text[300];
  std::snprintf(text, sizeof text, "%g e%d g%g %d..%d bio %d min %d %s,%s,%s %s %s,%s,%s %s #%d", p->Mass,
                p->MassExponent, p->Gravity, p->MinTemp, p->MaxTemp, p->Bio, p->MineralDensity, p->Atmos[0],
                p->Atmos[1], p->Atmos[2], p->Hydro, p->Litho[0], p->Litho[1], p->Litho[2], p->Weather, p->Seed);
  return text;
}

// What describe() gives for a planet read whole from planetLines().
static std::string whole(int seed) {
  return "5 e24 g1.25 -10..30 bio 7 min 120 Nitrogen,Oxygen,Argon Water Iron,Gold,Tin Light Rain #" +
         std::to_string(seed);
}

static constexpr std::uint32_t rgb(int r, int g, int b) { return 0xFF000000u | (r << 16) | (g << 8) | b; }

class StarMapTest : public GameTest {
 protected:
  void TearDown() override {
    clearStarMap(starMap);
    std::memset(planetColorTables, 0, sizeof planetColorTables);
  }
  void load(const std::string& content) { loadStarmapFile(starMap, dir_.write("Starmap.txt", content).c_str()); }
  void loadColors(const std::string& content) { loadPlanetColors(dir_.write("PlanetColor.txt", content).c_str()); }
  void expectLogged(std::initializer_list<std::string> lines) {
    for (const std::string& line : lines) EXPECT_TRUE(log.saw(line.c_str())) << line;
  }
  std::uint32_t (&table)[256] = planetColorTables[0];
  TempDir dir_;
  LogWatch log;
};

TEST_F(StarMapTest, ReadsObjectsAndPlanetsFieldByField) {
  // Comment lines are not fields; the empty ecosphere line of (8, 9) is; zero planets lead to the next object.
  load("# a comment\n" + objectLines(3, 7, "G", "Lanes 4-5", 2) + planetLines(4, 111) + "# between fields\n" +
       planetLines(1, 222) + objectLines(8, 9, "M", "", 0) + objectLines(10, 11, "K", "Lane 2", 1) + planetLines(9, 3));
  const StellarObject* g = starMap[3][7].object;
  ASSERT_TRUE(g && starMap[8][9].object && starMap[10][11].object);
  EXPECT_EQ(std::to_string(g->x) + "," + std::to_string(g->y) + " " + g->Class + "/" + g->Eco, "3,7 G/Lanes 4-5");
  EXPECT_EQ(g->NumOfPlanets, 2);
  EXPECT_EQ(describe(g->Planets[4]) + describe(g->Planets[1]) + describe(g->Planets[0]) +
                describe(starMap[10][11].object->Planets[9]) + starMap[8][9].object->Eco,
            whole(111) + whole(222) + "none" + whole(3));
  expectLogged({"Loading Starmap", "Total stars: 3, Total planets: 3", "M:1, K:1, G:1, F:0, A:0, B:0, O:0",
                "White Drawf:0, Neutron Star:0, Black Hole:0"});
  EXPECT_FALSE(log.saw(" line ")) << "a well-formed file draws no complaints";
  // The orbited planet's record: none without a system or for a slot outside the lanes.
  gameState.currentObject = nullptr, gameState.currentPlanet = 4;
  EXPECT_EQ(currentPlanetRecord(), nullptr);
  gameState.currentObject = starMap[3][7].object;
  EXPECT_EQ(currentPlanetRecord(), g->Planets[4]);
  for (int slot : {-1, 10}) EXPECT_EQ((gameState.currentPlanet = slot, currentPlanetRecord()), nullptr) << slot;
  gameState = GameState{};
  buildViewingTree(starMap);  // then a missing file leaves an empty map
  loadStarmapFile(starMap, dir_.path("None.txt").c_str());
  EXPECT_TRUE(starMap[3][7].object == nullptr && starMap[3][7].viewList == nullptr);
  expectLogged({"Can't open " + dir_.path("None.txt") + "; the star map stays empty", "Total stars: 0"});
}

// Long texts and lines first (lines 1 to 32), then records replacing others (33 to 154), then records that
// cannot be stored, read field by field so that the next keep their place; the file ends inside a planet.
TEST_F(StarMapTest, CutTextsReplacedRecordsAndSkippedRecords) {
  std::string planet = planetLines(0, 1);
  planet.replace(planet.find("Light Rain"), 10, "Torrential Downpours");
  planet.replace(planet.find("Nitrogen"), 8, std::string(40, 'N'));
  load(objectLines(1, 2, "A Very Long Class Name Indeed", "Twelve chars!", 1) + planet +
       objectLines(2, 2, std::string(1500, 'Q'), "e", -4) + objectLines(3, 3, "Z", "e", 0) +
       objectLines(12, 40, "K", "a", 2) + planetLines(0, 1) + planetLines(3, 2) +
       objectLines(12, 40, "Black Hole", "b", 1) + planetLines(5, 3) + objectLines(5, 5, "A", "e", 3) +
       planetLines(2, 10) + planetLines(2, 20) + planetLines(4, 30) + objectLines(13, 40, "K", "c", 0) +
       objectLines(500, 10, "M", "a", 1) + planetLines(3, 1) + objectLines(-1, 10, "M", "a", 0) +
       objectLines(10, 500, "M", "a", 0) + objectLines(10, -3, "G", "a", 1) + planetLines(0, 2) +
       objectLines(7, 7, "G", "e", 3) + planetLines(10, 1) + planetLines(-1, 2) + planetLines(6, 3) +
       objectLines(499, 499, "K", "kept", 2) + planetLines(9, 4) + "7\n3\n25\n2.5\n");
  const StellarObject *cut = starMap[1][2].object, *o = starMap[12][40].object;
  ASSERT_TRUE(cut && starMap[2][2].object && starMap[3][3].object) << "a negative count ends the object like 0";
  EXPECT_EQ(std::string(cut->Class) + "/" + cut->Eco, "A Very Long Class N/Twelve char");
  EXPECT_EQ(describe(cut->Planets[0]), "5 e24 g1.25 -10..30 bio 7 min 120 " + std::string(19, 'N') +
                                           ",Oxygen,Argon Water Iron,Gold,Tin Torrential Down #1");
  ASSERT_TRUE(o && starMap[5][5].object && starMap[13][40].object);
  EXPECT_STREQ(o->Class, "Black Hole");
  EXPECT_EQ(describe(o->Planets[0]) + describe(o->Planets[5]), "none" + whole(3)) << "old planets went with it";
  EXPECT_EQ(starMap[5][5].object->NumOfPlanets, 3) << "a lane given twice keeps the later planet but counts";
  EXPECT_EQ(describe(starMap[5][5].object->Planets[2]), whole(20));
  const StellarObject *seven = starMap[7][7].object, *kept = starMap[499][499].object;
  ASSERT_TRUE(seven && kept);
  std::string lanes;
  for (Planet* p : seven->Planets) lanes += p ? "+" : ".";
  EXPECT_EQ(lanes, "......+...");
  EXPECT_EQ(describe(seven->Planets[6]) + describe(kept->Planets[9]), whole(3) + whole(4));
  EXPECT_EQ(describe(kept->Planets[7]), "3 e25 g2.5 0..0 bio 0 min 0 ,,  ,,  #0");
  // Stars count occupied cells; classes and planets count every record read.
  expectLogged({"Starmap.txt line 3: text cut to 19 characters", "line 4: text cut to 11", "line 14: text cut to 19",
                "line 21: text cut to 15", "line 25: line longer than 999 characters cut",
                "line 27: negative number of planets -4 read as 0", "Stellar object already exists at 12, 40",
                "Starmap.txt line 156: position 500, 10 is off the map; object skipped",
                "line 178: position -1, 10 is off", "line 183: position 10, 500 is off", "line 188: position 10, -3",
                "Starmap.txt line 214: planet lane 10 is outside 0..9; planet skipped", "line 231: planet lane -1",
                "Total stars: 8, Total planets: 10", "M:0, K:3, G:1, F:0, A:1, B:0, O:0",
                "White Drawf:0, Neutron Star:0, Black Hole:1"});
}

TEST_F(StarMapTest, ColourEntriesSignsRangesAndPlanetColor) {
  loadColors("# comment\n0, 10, 20, 30\n\n. + - +\n3 1 2 3\n\t\n10,\t200,100,50\n");
  expectLogged({"Loading Planet Color"});
  EXPECT_FALSE(log.saw(" line "));
  const std::vector<std::uint32_t> expected = {rgb(10, 20, 30), rgb(11, 18, 33), rgb(12, 16, 36), rgb(13, 14, 39), 0};
  EXPECT_EQ(std::vector<std::uint32_t>(table, table + 5), expected);
  EXPECT_EQ(planetColor(10, "Metalic Hydrogen"), rgb(200, 100, 50));
  EXPECT_EQ(planetColor(100, "Green"), 0xFF006400u);
  EXPECT_EQ(planetColor(100, "water"), 0xFF646464u) << "unknown names are grey";
  EXPECT_EQ(planetColor(100, nullptr), 0xFF646464u);
  // Steps near the int limit over a long range once overflowed the running channel.
  loadColors("0 10 250 5\n. + - +\n255 2000000000 2000000000 -2147483648\n");
  EXPECT_EQ(std::pair(table[1], table[255]), std::pair(rgb(255, 0, 0), rgb(255, 0, 0)));
  // Two entries at slot 0 put the 256th colour of table 0 in slot 254; the range's last goes to table 1.
  loadColors("0 0 0 0\n0 5 5 5\n. + + +\n255 0 0 0\n0 1 2 3\n. + + +\n1 1 1 1\n");
  EXPECT_EQ(std::vector<std::uint32_t>(table + 254, table + 256), (std::vector<std::uint32_t>{rgb(5, 5, 5), 0}));
  EXPECT_EQ(std::pair(planetColorTables[1][255], planetColorTables[1][1]), std::pair(rgb(5, 5, 5), rgb(2, 3, 4)));
  std::string file;
  for (int t = 0; t < colorTableCount; ++t) file += "0 " + std::to_string(t) + " 0 0\n. + + +\n255 0 1 0\n";
  loadColors(file + "3 9 9 9\n");
  EXPECT_EQ(planetColor(255, colorTableNames[7]), rgb(7, 255, 0));
  expectLogged({"PlanetColor.txt line 25: more than 2048 colours; the rest are ignored"});
}

TEST_F(StarMapTest, BadColourLinesAreSkippedAndStoredValuesStayInBounds) {
  loadColors(
      ". + + +\n9 1 1 1\n300 1 2 3\n-1 1 2 3\n4 5 6\n250 250 5 128\n. + - +\n400 3 3 3\n20 -5 300 7 9\n. +\n22 1 1\n");
  expectLogged({"PlanetColor.txt line 2: colour range before any entry line; range skipped",
                "line 3: colour index 300 is outside 0..255", "line 4: colour index -1", "line 5: colour entry needs",
                "line 8: range end 400 is past slot 255", "line 8: colour channel outside 0..255 held at the limit",
                "line 9: colour channel", "line 10: sign line needs three signs", "line 11: colour range needs"});
  EXPECT_EQ(std::vector<std::uint32_t>(table + 252, table + 256),
            (std::vector<std::uint32_t>{rgb(255, 0, 134), rgb(255, 0, 137), rgb(255, 0, 140), rgb(255, 0, 143)}));
  EXPECT_EQ(table[20], rgb(0, 255, 7));
  for (int slot : {0, 4, 9, 21, 22}) EXPECT_EQ(table[slot], 0u) << slot;
  EXPECT_EQ(planetColorTables[1][0], 0u);
  loadPlanetColors(dir_.path("Nothing.txt").c_str());
  EXPECT_EQ(table[20], 0u);
  expectLogged({"Can't open " + dir_.path("Nothing.txt") + "; the planet colour tables stay empty"});
}

TEST_F(StarMapTest, StarImagesFallBackAndKeepBlackTransparent) {
  loadStarImages();
  for (int i = 0; i < starClassCount; ++i) {
    SDL_Surface *full = starImage(starClassNames[i]), *half = smallStarImage(starClassNames[i]);
    ASSERT_TRUE(full && half && full->w == 48 && half->w == 24) << starClassNames[i];
    EXPECT_NE(full, starImage(starClassNames[(i + 1) % starClassCount])) << "one image per class";
  }
  EXPECT_TRUE(smallStarImage("G")->flags & SDL_SRCCOLORKEY) << "the half-size images keep black transparent";
  EXPECT_EQ(starImage("Z"), starImage("Black Hole"));
  EXPECT_EQ(smallStarImage(""), smallStarImage("Black Hole"));
  EXPECT_EQ(starImage(nullptr), starImage("M"));
  EXPECT_STREQ(lastMessage(), "starclass is NULL");
}
