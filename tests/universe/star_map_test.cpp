#include "universe/star_map.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "shell/debug_log.h"
#include "shell/message_window.h"
#include "support/test_support.h"
#include "universe/viewing_tree.h"

namespace {

// The debug-log lines written since the watch was made.
class LogWatch {
 public:
  LogWatch() : start_(debugLog.writeIndex) {}
  std::vector<std::string> lines() const {
    std::vector<std::string> out;
    for (int i = start_; i != debugLog.writeIndex; i = (i + 1) % logLineCount) out.emplace_back(debugLog.lines[i]);
    return out;
  }
  bool has(const std::string& line) const {
    for (const std::string& l : lines()) {
      if (l == line) return true;
    }
    return false;
  }
  bool hasContaining(const std::string& part) const {
    for (const std::string& l : lines()) {
      if (l.find(part) != std::string::npos) return true;
    }
    return false;
  }

 private:
  int start_;
};

std::string objectLines(int x, int y, const std::string& cls, const std::string& eco, int planets) {
  return std::to_string(x) + "\n" + std::to_string(y) + "\n" + cls + "\n" + eco + "\n" + std::to_string(planets) + "\n";
}

std::string planetLines(int lane, int seed, const std::string& hydro = "Water") {
  return std::to_string(lane) + "\n5\n24\n1.25\n-10\n30\n7\n120\nNitrogen\nOxygen\nArgon\n" + hydro +
         "\nIron\nGold\nTin\nLight Rain\n" + std::to_string(seed) + "\n";
}

class StarMapTest : public GameTest {
 protected:
  void TearDown() override { clearStarMap(starMap); }

  void load(const std::string& content) { loadStarmapFile(starMap, dir_.write("Starmap.txt", content).c_str()); }
  std::string path() const { return "Starmap.txt"; }

  TempDir dir_;
};

TEST_F(StarMapTest, ReadsObjectsAndPlanetsFieldByField) {
  LogWatch log;
  load("# a comment before anything\n" + objectLines(3, 7, "G", "Lanes 4-5", 2) + planetLines(4, 111) +
       "# comments between planet fields do not count\n" + planetLines(1, 222, "Lava") + objectLines(8, 9, "M", "", 0) +
       objectLines(10, 11, "K", "Lane 2", 1) + planetLines(9, 333));

  const StellarObject* g = starMap[3][7].object;
  ASSERT_NE(g, nullptr);
  EXPECT_EQ(g->x, 3);
  EXPECT_EQ(g->y, 7);
  EXPECT_STREQ(g->Class, "G");
  EXPECT_STREQ(g->Eco, "Lanes 4-5");
  EXPECT_EQ(g->NumOfPlanets, 2);
  const Planet* p = g->Planets[4];
  ASSERT_NE(p, nullptr);
  EXPECT_FLOAT_EQ(p->Mass, 5.0f);
  EXPECT_EQ(p->MassExponent, 24);
  EXPECT_FLOAT_EQ(p->Gravity, 1.25f);
  EXPECT_EQ(p->MinTemp, -10);
  EXPECT_EQ(p->MaxTemp, 30);
  EXPECT_EQ(p->Bio, 7);
  EXPECT_EQ(p->MineralDensity, 120);
  EXPECT_STREQ(p->Atmos[0], "Nitrogen");
  EXPECT_STREQ(p->Atmos[1], "Oxygen");
  EXPECT_STREQ(p->Atmos[2], "Argon");
  EXPECT_STREQ(p->Hydro, "Water");
  EXPECT_STREQ(p->Litho[0], "Iron");
  EXPECT_STREQ(p->Litho[1], "Gold");
  EXPECT_STREQ(p->Litho[2], "Tin");
  EXPECT_STREQ(p->Weather, "Light Rain");
  EXPECT_EQ(p->Seed, 111);
  ASSERT_NE(g->Planets[1], nullptr);
  EXPECT_STREQ(g->Planets[1]->Hydro, "Lava");
  EXPECT_EQ(g->Planets[1]->Seed, 222);
  for (int lane : {0, 2, 3, 5, 6, 7, 8, 9}) EXPECT_EQ(g->Planets[lane], nullptr) << lane;

  // An empty line is a field: here an empty ecosphere. Zero planets lead straight to the next object.
  const StellarObject* m = starMap[8][9].object;
  ASSERT_NE(m, nullptr);
  EXPECT_STREQ(m->Eco, "");
  EXPECT_EQ(m->NumOfPlanets, 0);
  const StellarObject* k = starMap[10][11].object;
  ASSERT_NE(k, nullptr);
  ASSERT_NE(k->Planets[9], nullptr);
  EXPECT_EQ(k->Planets[9]->Seed, 333);

  EXPECT_EQ(starMapCounts.totalStars, 3);
  EXPECT_EQ(starMapCounts.totalPlanets, 3);
  EXPECT_TRUE(log.has("Loading Starmap"));
  EXPECT_TRUE(log.has("Total stars: 3, Total planets: 3"));
  EXPECT_TRUE(log.has("M:1, K:1, G:1, F:0, A:0, B:0, O:0"));
  EXPECT_TRUE(log.has("White Drawf:0, Neutron Star:0, Black Hole:0"));
  EXPECT_FALSE(log.hasContaining(" line ")) << "a well-formed file draws no complaints";
}

TEST_F(StarMapTest, EmptyLinesAreFieldsThatReadAsZeroOrEmpty) {
  // Mass, gravity and the first atmosphere line are empty.
  load(objectLines(1, 1, "F", "x", 1) + "2\n\n24\n\n5\n6\n0\n50\n\nB\nC\nWater\nIron\nTin\nLead\nCalm\n9\n");
  const Planet* p = starMap[1][1].object->Planets[2];
  ASSERT_NE(p, nullptr);
  EXPECT_FLOAT_EQ(p->Mass, 0.0f);
  EXPECT_EQ(p->MassExponent, 24);
  EXPECT_FLOAT_EQ(p->Gravity, 0.0f);
  EXPECT_STREQ(p->Atmos[0], "");
  EXPECT_STREQ(p->Atmos[1], "B");
  EXPECT_EQ(p->Seed, 9);
}

TEST_F(StarMapTest, LaterRecordAtTheSamePlaceReplacesTheEarlier) {
  LogWatch log;
  load(objectLines(12, 40, "K", "a", 2) + planetLines(0, 1) + planetLines(3, 2) +
       objectLines(12, 40, "Black Hole", "b", 1) + planetLines(5, 3) + objectLines(13, 40, "K", "c", 0));
  EXPECT_TRUE(log.has("Stellar object already exists at 12, 40"));
  const StellarObject* o = starMap[12][40].object;
  ASSERT_NE(o, nullptr);
  EXPECT_STREQ(o->Class, "Black Hole");
  EXPECT_STREQ(o->Eco, "b");
  EXPECT_EQ(o->Planets[0], nullptr) << "the earlier object's planets went with it";
  EXPECT_EQ(o->Planets[3], nullptr);
  ASSERT_NE(o->Planets[5], nullptr);
  EXPECT_EQ(o->Planets[5]->Seed, 3);
  // Stars count occupied cells; classes and planets count every record read.
  EXPECT_EQ(starMapCounts.totalStars, 2);
  EXPECT_EQ(starMapCounts.totalPlanets, 3);
  EXPECT_EQ(starMapCounts.classCounts[1], 2);  // K
  EXPECT_EQ(starMapCounts.classCounts[9], 1);  // Black Hole
  EXPECT_TRUE(log.has("Total stars: 2, Total planets: 3"));
  EXPECT_TRUE(log.has("M:0, K:2, G:0, F:0, A:0, B:0, O:0"));
  EXPECT_TRUE(log.has("White Drawf:0, Neutron Star:0, Black Hole:1"));
}

TEST_F(StarMapTest, RepeatedLaneReplacesThePlanetButNumOfPlanetsCountsEntries) {
  load(objectLines(5, 5, "A", "e", 3) + planetLines(2, 10) + planetLines(2, 20) + planetLines(4, 30) +
       objectLines(6, 6, "B", "e", 0));
  const StellarObject* o = starMap[5][5].object;
  EXPECT_EQ(o->NumOfPlanets, 3);
  EXPECT_EQ(o->Planets[2]->Seed, 20);
  EXPECT_EQ(o->Planets[4]->Seed, 30);
  EXPECT_EQ(starMapCounts.totalPlanets, 3);
  ASSERT_NE(starMap[6][6].object, nullptr) << "the third entry ended the object";
}

TEST_F(StarMapTest, FileEndingInsideAPlanetKeepsWhatWasRead) {
  // The planet stops after its gravity line.
  load(objectLines(20, 30, "O", "None", 2) + planetLines(1, 5) + "7\n3\n25\n2.5\n");
  const StellarObject* o = starMap[20][30].object;
  ASSERT_NE(o, nullptr);
  const Planet* p = o->Planets[7];
  ASSERT_NE(p, nullptr);
  EXPECT_FLOAT_EQ(p->Mass, 3.0f);
  EXPECT_EQ(p->MassExponent, 25);
  EXPECT_FLOAT_EQ(p->Gravity, 2.5f);
  EXPECT_EQ(p->MinTemp, 0);
  EXPECT_EQ(p->MineralDensity, 0);
  EXPECT_STREQ(p->Atmos[0], "");
  EXPECT_STREQ(p->Hydro, "");
  EXPECT_STREQ(p->Weather, "");
  EXPECT_EQ(p->Seed, 0);
  EXPECT_EQ(starMapCounts.totalPlanets, 2);
}

TEST_F(StarMapTest, RecordsOffTheMapAreSkippedWithoutLosingTheirPlace) {
  LogWatch log;
  load(objectLines(500, 10, "M", "a", 1) + planetLines(3, 1) +  // column past the edge, line 2 is its row
       objectLines(-1, 10, "M", "a", 0) +                       // negative column, row at line 24
       objectLines(10, 500, "M", "a", 0) +                      // row past the edge, line 29
       objectLines(10, -3, "G", "a", 1) + planetLines(0, 2) +   // negative row, line 34
       objectLines(499, 499, "K", "kept", 1) + planetLines(9, 3));
  EXPECT_TRUE(log.has(path() + " line 2: position 500, 10 is off the map; object skipped"));
  EXPECT_TRUE(log.has(path() + " line 24: position -1, 10 is off the map; object skipped"));
  EXPECT_TRUE(log.has(path() + " line 29: position 10, 500 is off the map; object skipped"));
  EXPECT_TRUE(log.has(path() + " line 34: position 10, -3 is off the map; object skipped"));
  // The skipped records' lines were still read as their fields, so the last record is whole.
  const StellarObject* kept = starMap[499][499].object;
  ASSERT_NE(kept, nullptr);
  EXPECT_STREQ(kept->Eco, "kept");
  ASSERT_NE(kept->Planets[9], nullptr);
  EXPECT_EQ(kept->Planets[9]->Seed, 3);
  EXPECT_EQ(starMapCounts.totalStars, 1);
  EXPECT_EQ(starMapCounts.totalPlanets, 1);
  EXPECT_EQ(starMapCounts.classCounts[0], 0) << "skipped records count in no class";
  EXPECT_EQ(starMap[10][0].object, nullptr);
}

TEST_F(StarMapTest, PlanetsOnLanesTheStarDoesNotHaveAreSkipped) {
  LogWatch log;
  load(objectLines(7, 7, "G", "e", 3) + planetLines(10, 1) + planetLines(-1, 2) + planetLines(6, 3) +
       objectLines(8, 8, "M", "next", 0));
  EXPECT_TRUE(log.has(path() + " line 6: planet lane 10 is outside 0..9; planet skipped"));
  EXPECT_TRUE(log.has(path() + " line 23: planet lane -1 is outside 0..9; planet skipped"));
  const StellarObject* o = starMap[7][7].object;
  EXPECT_EQ(o->NumOfPlanets, 3);
  ASSERT_NE(o->Planets[6], nullptr);
  EXPECT_EQ(o->Planets[6]->Seed, 3);
  int planets = 0;
  for (Planet* p : o->Planets) planets += p != nullptr;
  EXPECT_EQ(planets, 1);
  EXPECT_EQ(starMapCounts.totalPlanets, 1);
  ASSERT_NE(starMap[8][8].object, nullptr);
  EXPECT_STREQ(starMap[8][8].object->Eco, "next");
}

TEST_F(StarMapTest, LongTextsAreCutToTheirFields) {
  LogWatch log;
  const std::string longClass = "A Very Long Class Name Indeed";  // 29 characters
  std::string planet = planetLines(0, 1);
  planet.replace(planet.find("Light Rain"), 10, "Torrential Downpours");  // 20 characters
  planet.replace(planet.find("Nitrogen"), 8, std::string(40, 'N'));
  load(objectLines(1, 2, longClass, "Twelve chars!", 1) + planet);
  const StellarObject* o = starMap[1][2].object;
  ASSERT_NE(o, nullptr);
  EXPECT_EQ(std::string(o->Class), longClass.substr(0, 19));
  EXPECT_EQ(std::string(o->Eco), "Twelve char");
  EXPECT_EQ(std::string(o->Planets[0]->Weather), "Torrential Down");
  EXPECT_EQ(std::string(o->Planets[0]->Atmos[0]), std::string(19, 'N'));
  EXPECT_STREQ(o->Planets[0]->Atmos[1], "Oxygen") << "the field after a cut text is untouched";
  EXPECT_TRUE(log.has(path() + " line 3: text cut to 19 characters"));
  EXPECT_TRUE(log.has(path() + " line 4: text cut to 11 characters"));
  EXPECT_TRUE(log.has(path() + " line 14: text cut to 19 characters"));
  EXPECT_TRUE(log.has(path() + " line 21: text cut to 15 characters"));
  EXPECT_EQ(starMapCounts.classCounts[4], 0) << "a cut class text names no known class";
}

TEST_F(StarMapTest, OverlongLinesNegativePlanetCountsAndUnknownClasses) {
  LogWatch log;
  load(objectLines(2, 2, std::string(1500, 'Q'), "e", -4) + objectLines(3, 3, "Z", "e", 0));
  EXPECT_TRUE(log.has(path() + " line 3: line longer than 999 characters cut"));
  EXPECT_TRUE(log.has(path() + " line 5: negative number of planets -4 read as 0"));
  ASSERT_NE(starMap[2][2].object, nullptr);
  EXPECT_EQ(starMap[2][2].object->NumOfPlanets, 0);
  ASSERT_NE(starMap[3][3].object, nullptr) << "a negative count ends the object like 0 does";
  EXPECT_STREQ(starMap[3][3].object->Class, "Z");
  int classified = 0;
  for (int c : starMapCounts.classCounts) classified += c;
  EXPECT_EQ(classified, 0);
  EXPECT_EQ(starMapCounts.totalStars, 2);
}

TEST_F(StarMapTest, MissingFileLeavesAnEmptyMap) {
  load(objectLines(4, 4, "M", "e", 0));
  ASSERT_NE(starMap[4][4].object, nullptr);
  buildViewingTree(starMap);
  LogWatch log;
  loadStarmapFile(starMap, dir_.path("NoSuchStarmap.txt").c_str());
  EXPECT_EQ(starMap[4][4].object, nullptr) << "a new load starts from an empty map";
  EXPECT_EQ(starMap[4][4].viewList, nullptr);
  EXPECT_TRUE(log.has("Can't open " + dir_.path("NoSuchStarmap.txt") + "; the star map stays empty"));
  EXPECT_TRUE(log.has("Total stars: 0, Total planets: 0"));
  EXPECT_TRUE(log.has("M:0, K:0, G:0, F:0, A:0, B:0, O:0"));
}

// ---------------------------------------------------------------------------
// Planet colour tables.

constexpr std::uint32_t rgb(int r, int g, int b) {
  return 0xFF000000u | (std::uint32_t(r) << 16) | (std::uint32_t(g) << 8) | std::uint32_t(b);
}

class StarMapColorTest : public GameTest {
 protected:
  void TearDown() override { std::memset(planetColorTables, 0, sizeof planetColorTables); }
  void load(const std::string& content) { loadPlanetColors(dir_.write("PlanetColor.txt", content).c_str()); }
  std::string path() const { return "PlanetColor.txt"; }
  TempDir dir_;
};

TEST_F(StarMapColorTest, EntrySignAndRangeLines) {
  LogWatch log;
  load("# comment\n0, 10, 20, 30\n\n. + - +\n3 1 2 3\n\t\n10,\t200,100,50\n");
  EXPECT_TRUE(log.has("Loading Planet Color"));
  EXPECT_EQ(planetColorTables[0][0], rgb(10, 20, 30));
  EXPECT_EQ(planetColorTables[0][1], rgb(11, 18, 33));
  EXPECT_EQ(planetColorTables[0][2], rgb(12, 16, 36));
  EXPECT_EQ(planetColorTables[0][3], rgb(13, 14, 39));
  EXPECT_EQ(planetColorTables[0][4], 0u) << "slots the file never fills stay 0";
  EXPECT_EQ(planetColorTables[0][10], rgb(200, 100, 50));
  EXPECT_FALSE(log.hasContaining(" line "));
}

TEST_F(StarMapColorTest, RunningColourCarriesOnAndAnySignButPlusFalls) {
  // A second range starts again right after the latest entry, but from the colour the first one left.
  load("5 100 100 100\n. x - +\n7 10 10 10\n. + + +\n6 1 1 1\n. + + +\n4 9 9 9\n");
  EXPECT_EQ(planetColorTables[0][5], rgb(100, 100, 100));
  EXPECT_EQ(planetColorTables[0][6], rgb(81, 81, 121));
  EXPECT_EQ(planetColorTables[0][7], rgb(80, 80, 120));
  EXPECT_EQ(planetColorTables[0][4], 0u) << "a range ending before the slot after the entry stores nothing";
}

TEST_F(StarMapColorTest, ColoursPastATableSpillIntoTheNext) {
  // Two entries at slot 0 mean the 256th colour of table 0 is slot 254, so the
  // range's last slot goes to table 1; table 1 then carries on from slot 0.
  load("0 0 0 0\n0 5 5 5\n. + + +\n255 0 0 0\n0 1 2 3\n. + + +\n1 1 1 1\n");
  EXPECT_EQ(planetColorTables[0][0], rgb(5, 5, 5));
  EXPECT_EQ(planetColorTables[0][254], rgb(5, 5, 5));
  EXPECT_EQ(planetColorTables[0][255], 0u);
  EXPECT_EQ(planetColorTables[1][255], rgb(5, 5, 5));
  EXPECT_EQ(planetColorTables[1][0], rgb(1, 2, 3));
  EXPECT_EQ(planetColorTables[1][1], rgb(2, 3, 4));
}

TEST_F(StarMapColorTest, EightFullTablesInOrderAndNothingPastThem) {
  LogWatch log;
  std::string file;
  for (int t = 0; t < colorTableCount; ++t) file += "0 " + std::to_string(t) + " 0 0\n. + + +\n255 0 1 0\n";
  file += "3 9 9 9\n";  // a 2049th colour has no table to go to
  load(file);
  for (int t = 0; t < colorTableCount; ++t) {
    EXPECT_EQ(planetColor(0, colorTableNames[t]), rgb(t, 0, 0)) << colorTableNames[t];
    EXPECT_EQ(planetColor(255, colorTableNames[t]), rgb(t, 255, 0)) << colorTableNames[t];
  }
  EXPECT_TRUE(log.has(path() + " line 25: more than 2048 colours; the rest are ignored"));
}

TEST_F(StarMapColorTest, BadLinesAreSkippedAndStoredValuesStayInBounds) {
  LogWatch log;
  load(
      ". + + +\n"        // line 1: signs with no entry yet...
      "9 1 1 1\n"        // line 2: ...so the range has nowhere to start
      "300 1 2 3\n"      // line 3: slot past the table
      "-1 1 2 3\n"       // line 4: slot before it
      "4 5 6\n"          // line 5: a channel short
      "250 250 5 128\n"  // line 6
      ". + - +\n"        // line 7
      "400 3 3 3\n"      // line 8: ends past slot 255 and runs the channels out of 0..255
      "20 -5 300 7 9\n"  // line 9: channels outside 0..255 are held at the limit
      ". +\n"            // line 10: missing signs fall
      "22 1 1\n");       // line 11: a step short, so the range is skipped
  EXPECT_TRUE(log.has(path() + " line 2: colour range before any entry line; range skipped"));
  EXPECT_TRUE(log.has(path() + " line 3: colour index 300 is outside 0..255; line skipped"));
  EXPECT_TRUE(log.has(path() + " line 4: colour index -1 is outside 0..255; line skipped"));
  EXPECT_TRUE(log.has(path() + " line 5: colour entry needs an index and three channels; line skipped"));
  EXPECT_TRUE(log.has(path() + " line 8: range end 400 is past slot 255; range stops at 255"));
  EXPECT_TRUE(log.has(path() + " line 8: colour channel outside 0..255 held at the limit"));
  EXPECT_TRUE(log.has(path() + " line 9: colour channel outside 0..255 held at the limit"));
  EXPECT_TRUE(log.has(path() + " line 10: sign line needs three signs; missing ones read as '-'"));
  EXPECT_TRUE(log.has(path() + " line 11: colour range needs an end index and three steps; range skipped"));
  EXPECT_EQ(planetColorTables[0][250], rgb(250, 5, 128));
  EXPECT_EQ(planetColorTables[0][251], rgb(253, 2, 131));
  EXPECT_EQ(planetColorTables[0][252], rgb(255, 0, 134));
  EXPECT_EQ(planetColorTables[0][255], rgb(255, 0, 143));
  EXPECT_EQ(planetColorTables[0][20], rgb(0, 255, 7));
  for (int slot : {0, 4, 9, 21, 22}) EXPECT_EQ(planetColorTables[0][slot], 0u) << slot;
  for (int t = 1; t < colorTableCount; ++t) EXPECT_EQ(planetColorTables[t][0], 0u);
}

TEST_F(StarMapColorTest, MissingFileLeavesEmptyTables) {
  load("0 1 2 3\n");
  ASSERT_NE(planetColorTables[0][0], 0u);
  LogWatch log;
  loadPlanetColors(dir_.path("Nothing.txt").c_str());
  EXPECT_EQ(planetColorTables[0][0], 0u);
  EXPECT_TRUE(log.has("Loading Planet Color"));
  EXPECT_TRUE(log.has("Can't open " + dir_.path("Nothing.txt") + "; the planet colour tables stay empty"));
}

TEST_F(StarMapColorTest, PlanetColorPicksGreenATableOrGrey) {
  load("100 1 2 3\n");
  EXPECT_EQ(planetColor(100, "Green"), 0xFF006400u);
  EXPECT_EQ(planetColor(100, "Metalic Hydrogen"), rgb(1, 2, 3));
  EXPECT_EQ(planetColor(100, "Ammonia"), 0xFF646464u);
  EXPECT_EQ(planetColor(100, "water"), 0xFF646464u) << "names compare exactly";
  EXPECT_EQ(planetColor(100, nullptr), 0xFF646464u);
  EXPECT_EQ(planetColor(255, "Green"), 0xFF00FF00u);
  EXPECT_EQ(planetColor(0, "None"), 0xFF000000u);
}

// ---------------------------------------------------------------------------
// Star images.

class StarMapImageTest : public GameTest {
 protected:
  void SetUp() override {
    GameTest::SetUp();
    loadStarImages();
  }
};

TEST_F(StarMapImageTest, LookupFallsBackToTheBlackHoleAndTheMImage) {
  for (int i = 0; i < starClassCount; ++i) {
    SDL_Surface* full = starImage(starClassNames[i]);
    SDL_Surface* half = smallStarImage(starClassNames[i]);
    ASSERT_NE(full, nullptr) << starClassNames[i];
    ASSERT_NE(half, nullptr) << starClassNames[i];
    EXPECT_EQ(full->w, 48);
    EXPECT_EQ(half->w, 24);
    EXPECT_EQ(half->h, 24);
    for (int j = 0; j < i; ++j) EXPECT_NE(full, starImage(starClassNames[j])) << "one image per class";
  }
  EXPECT_EQ(starImage("Z"), starImage("Black Hole"));
  EXPECT_EQ(smallStarImage("m"), smallStarImage("Black Hole"));
  EXPECT_EQ(starImage(""), starImage("Black Hole"));

  const int before = messageWindow.writeIndex;
  EXPECT_EQ(starImage(nullptr), starImage("M"));
  EXPECT_STREQ(messageWindow.lines[before], "starclass is NULL");
  EXPECT_EQ(smallStarImage(nullptr), smallStarImage("M"));
}

// Blits an image over a green backdrop and reads it back.
struct Backdrop {
  explicit Backdrop(SDL_Surface* image) {
    surface = SDL_CreateRGBSurface(SDL_SWSURFACE, image->w, image->h, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0);
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0, 200, 0));
    SDL_BlitSurface(image, nullptr, surface, nullptr);
  }
  ~Backdrop() { SDL_FreeSurface(surface); }
  Uint32 at(int x, int y) const { return pixelRGB(surface, x, y); }
  SDL_Surface* surface;
};

TEST_F(StarMapImageTest, BlackIsTransparentInBothSizes) {
  for (int i = 0; i < starClassCount; ++i) {
    for (SDL_Surface* image : {starImage(starClassNames[i]), smallStarImage(starClassNames[i])}) {
      ASSERT_NE(image, nullptr);
      EXPECT_TRUE(image->flags & SDL_SRCCOLORKEY);
      const Backdrop b(image);
      const int last = image->w - 1;
      EXPECT_EQ(b.at(0, 0), 0x00C800u) << starClassNames[i] << " " << image->w;
      EXPECT_EQ(b.at(last, last), 0x00C800u) << starClassNames[i] << " " << image->w;
      EXPECT_NE(b.at(image->w / 2, image->h / 2), 0x00C800u) << starClassNames[i] << " shows over the backdrop";
    }
  }
}

TEST_F(StarMapImageTest, ImagesLookLikeTheirClasses) {
  auto channels = [](Uint32 c) { return std::array<int, 3>{int(c >> 16), int((c >> 8) & 0xFF), int(c & 0xFF)}; };
  auto centre = [&](const char* cls) { return channels(pixelRGB(starImage(cls), 24, 24)); };
  auto rim = [&](const char* cls, int dx) { return channels(pixelRGB(starImage(cls), 24 + dx, 24)); };
  // Cool stars are red-orange, hot ones blue-white.
  EXPECT_GT(rim("M", 4)[0], rim("M", 4)[2] + 60);
  EXPECT_GT(rim("O", 12)[2], rim("O", 12)[0] + 30);
  EXPECT_GT(centre("G")[0], 200);
  // Hotter classes are bigger: count the bright pixels of the disc.
  auto litArea = [&](const char* cls) {
    int lit = 0;
    for (int y = 0; y < 48; ++y) {
      for (int x = 0; x < 48; ++x) {
        const auto c = channels(pixelRGB(starImage(cls), x, y));
        lit += std::max({c[0], c[1], c[2]}) > 160 ? 1 : 0;
      }
    }
    return lit;
  };
  const char* order[] = {"M", "K", "G", "F", "A", "B", "O"};
  for (int i = 1; i < 7; ++i) EXPECT_GT(litArea(order[i]), litArea(order[i - 1])) << order[i];
  EXPECT_LT(litArea("White Drawf"), litArea("M"));
  // The neutron star is a point: a few pixels off its centre diagonally it is dark.
  EXPECT_GT(centre("Neutron Star")[2], 200);
  EXPECT_LT(channels(pixelRGB(starImage("Neutron Star"), 30, 30))[2], 60);
  // The black hole is a dark disc that still hides what lies behind it, ringed with light.
  const Backdrop hole(starImage("Black Hole"));
  EXPECT_EQ(hole.at(24, 20), 0x010101u);
  EXPECT_GT(channels(hole.at(24, 15))[0], 200) << "the bright ring";
}

TEST_F(StarMapImageTest, MissingImagesAreLoggedAndLeftEmpty) {
  TempDir empty;
  char here[4096];
  ASSERT_NE(getcwd(here, sizeof here), nullptr);
  ASSERT_EQ(chdir(empty.dir().c_str()), 0);
  LogWatch log;
  loadStarImages();
  const bool emptied = starImage("G") == nullptr && smallStarImage("G") == nullptr;
  ASSERT_EQ(chdir(here), 0);
  EXPECT_TRUE(emptied);
  const std::vector<std::string> logged = log.lines();
  loadStarImages();
  EXPECT_NE(starImage("G"), nullptr) << "a later load finds them again";
  EXPECT_TRUE(log.has("Can't load star image ./Stars/M.bmp"));
  EXPECT_TRUE(log.has("Can't load star image ./Stars/BlackHole.bmp"));
  // The images load in their fixed order: M, O, K, G, F, B, A, then the remnants.
  std::vector<std::string> order;
  for (const std::string& line : logged) order.push_back(line.substr(line.rfind('/') + 1));
  const std::vector<std::string> expected = {"M.bmp", "O.bmp", "K.bmp",          "G.bmp",           "F.bmp",
                                             "B.bmp", "A.bmp", "WhiteDrawf.bmp", "NeutronStar.bmp", "BlackHole.bmp"};
  EXPECT_EQ(order, expected);
}

}  // namespace
