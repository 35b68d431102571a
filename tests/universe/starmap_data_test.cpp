// Checks on the universe the game ships with: data/Starmap.txt and data/PlanetColor.txt.
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "shell/debug_log.h"
#include "support/test_support.h"
#include "universe/planet.h"
#include "universe/star_map.h"
#include "universe/viewing_tree.h"

namespace {

std::string slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// Whether anything since `start` was a loader's complaint about a line of a file.
bool complaintsSince(int start) {
  for (int i = start; i != debugLog.writeIndex; i = (i + 1) % logLineCount) {
    if (std::string(debugLog.lines[i]).find(" line ") != std::string::npos) {
      ADD_FAILURE() << debugLog.lines[i];
      return true;
    }
  }
  return false;
}

bool isGasGiant(const Planet* p) {
  return std::string(p->Hydro) == "Metalic Hydrogen" || std::string(p->Hydro) == "Helium";
}

class StarmapDataTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    const int start = debugLog.writeIndex;
    loadStarmapFile(starMap, PROSPECTOR_SOURCE_DIR "/data/Starmap.txt");
    buildViewingTree(starMap);
    cleanLoad = !complaintsSince(start);
  }
  static void TearDownTestSuite() { clearStarMap(starMap); }
  static bool cleanLoad;
};
bool StarmapDataTest::cleanLoad = false;

TEST_F(StarmapDataTest, RegeneratingWritesTheSameFile) {
  TempDir dir;
  const std::string out = dir.path("Starmap.txt");
  ASSERT_EQ(std::system((std::string("'") + MAKE_STARMAP_BINARY + "' '" + out + "'").c_str()), 0);
  const std::string shipped = slurp(PROSPECTOR_SOURCE_DIR "/data/Starmap.txt");
  ASSERT_FALSE(shipped.empty());
  EXPECT_TRUE(slurp(out) == shipped) << "data/Starmap.txt is not what tools/make_starmap writes; regenerate it";
}

TEST_F(StarmapDataTest, LoadsCleanlyWithAFewThousandObjectsInRealisticClasses) {
  EXPECT_TRUE(cleanLoad);
  const StarMapCounts& c = starMapCounts;
  EXPECT_GE(c.totalStars, 2000);
  EXPECT_LE(c.totalStars, 6000);
  int classified = 0;
  for (int n : c.classCounts) classified += n;
  EXPECT_EQ(classified, c.totalStars) << "every object has one of the ten classes, none twice at a place";
  // M most common, then K, G, F, A, B, O; the remnants rare.
  for (int i = 1; i < 7; ++i) EXPECT_GT(c.classCounts[i - 1], c.classCounts[i]) << starClassNames[i];
  EXPECT_GT(c.classCounts[0], c.totalStars / 2);
  for (int i = 7; i < 10; ++i) {
    EXPECT_GT(c.classCounts[i], 0) << starClassNames[i];
    EXPECT_LT(c.classCounts[i], c.totalStars / 15) << starClassNames[i];
  }
}

TEST_F(StarmapDataTest, StarsGatherInClustersRatherThanNoise) {
  // With the objects spread evenly, a 10 x 10 block would hold about 1.5 of them;
  // clusters leave most blocks empty and pack a few.
  int empty = 0, crowded = 0;
  for (int bx = 0; bx < 50; ++bx) {
    for (int by = 0; by < 50; ++by) {
      int n = 0;
      for (int x = bx * 10; x < bx * 10 + 10; ++x) {
        for (int y = by * 10; y < by * 10 + 10; ++y) n += starMap[x][y].object != nullptr;
      }
      empty += n == 0;
      crowded += n >= 10;
    }
  }
  EXPECT_GT(empty, 1250);
  EXPECT_GT(crowded, 60);
}

TEST_F(StarmapDataTest, PlanetsAreWithinTheFormatAndFitTheirWorlds) {
  const std::set<std::string> hydrospheres = {
      "Metalic Hydrogen", "Helium", "Methane", "Carbon Dioxide", "Water", "Molten Tin", "Molten Iron", "Lava", "None"};
  std::set<int> seeds;
  int planets = 0, rich = 0, sparse = 0;
  for (int x = 0; x < starMapSize; ++x) {
    for (int y = 0; y < starMapSize; ++y) {
      const StellarObject* o = starMap[x][y].object;
      if (!o) continue;
      int occupied = 0;
      for (int lane = 0; lane < maxPlanets; ++lane) {
        const Planet* p = o->Planets[lane];
        if (!p) continue;
        ++occupied;
        ++planets;
        SCOPED_TRACE(std::to_string(x) + ", " + std::to_string(y) + " lane " + std::to_string(lane));
        EXPECT_TRUE(hydrospheres.count(p->Hydro)) << p->Hydro;
        for (const char* litho : p->Litho) EXPECT_NE(std::string(mineralName(mineralNumber(litho))), "Unknown");
        for (const char* litho : p->Litho) {
          EXPECT_TRUE(mineralNumber(litho) != 0 || std::string(litho) == "Lead") << litho;
        }
        EXPECT_LE(p->MinTemp, p->MaxTemp);
        EXPECT_GE(p->MineralDensity, 0);
        EXPECT_LE(p->MineralDensity, 400);
        EXPECT_GT(p->Gravity, 0.0f);
        if (isGasGiant(p)) {
          EXPECT_GE(p->Gravity, 1.0f);
        }
        if (std::string(p->Hydro) == "Water") {
          EXPECT_LT(p->MinTemp, 100);
        }
        if (std::string(p->Hydro) == "Lava") {
          EXPECT_GT(p->MaxTemp, 200);
        }
        EXPECT_TRUE(seeds.insert(p->Seed).second) << "seed " << p->Seed << " used twice";
        rich += p->MineralDensity >= 250;
        sparse += p->MineralDensity < 50;
      }
      EXPECT_EQ(occupied, o->NumOfPlanets) << "no lane given twice at " << x << ", " << y;
      EXPECT_LE(o->NumOfPlanets, maxPlanets);
    }
  }
  EXPECT_EQ(planets, starMapCounts.totalPlanets);
  EXPECT_GT(rich, 50);
  EXPECT_LT(rich, planets / 10) << "rich worlds are the exception";
  EXPECT_GT(sparse, planets / 5);
}

TEST_F(StarmapDataTest, HomeSystemAwaitsTheNewShip) {
  const StellarObject* home = starMap[100][100].object;
  ASSERT_NE(home, nullptr);
  EXPECT_STREQ(home->Class, "G");
  EXPECT_EQ(home->NumOfPlanets, 7);
  int planets = 0, rich = 0, water = 0, giants = 0;
  for (const Planet* p : home->Planets) {
    if (!p) continue;
    ++planets;
    rich += p->MineralDensity >= 250;
    water += std::string(p->Hydro) == "Water";
    giants += isGasGiant(p);
  }
  EXPECT_EQ(planets, 7);
  EXPECT_GE(rich, 2);
  EXPECT_GE(water, 1);
  EXPECT_GE(giants, 1);

  // The new game starts at (100, 96) flying to higher rows: the way into the system is clear...
  for (int y = 90; y < 100; ++y) EXPECT_EQ(starMap[100][y].object, nullptr) << "100, " << y;
  EXPECT_EQ(starMap[99][96].object, nullptr);
  EXPECT_EQ(starMap[101][96].object, nullptr);
  // ...and the viewscreen has company from the first frame.
  int neighbours = 0;
  for (const ViewNode* n = starMap[100][96].viewList; n; n = n->next) neighbours += n->x != 100;
  EXPECT_GE(neighbours, 3);
}

TEST(StarmapDataColorTest, ShippedTablesAreCompleteAndLookLikeTheirNames) {
  const int start = debugLog.writeIndex;
  loadPlanetColors(PROSPECTOR_SOURCE_DIR "/data/PlanetColor.txt");
  EXPECT_FALSE(complaintsSince(start));
  for (int t = 0; t < colorTableCount; ++t) {
    for (int shade = 0; shade < 256; ++shade) {
      ASSERT_NE(planetColorTables[t][shade], 0u) << colorTableNames[t] << " slot " << shade << " never filled";
    }
  }
  auto r = [](const char* name, int shade) { return int(planetColor(shade, name) >> 16 & 0xFF); };
  auto g = [](const char* name, int shade) { return int(planetColor(shade, name) >> 8 & 0xFF); };
  auto b = [](const char* name, int shade) { return int(planetColor(shade, name) & 0xFF); };
  // Oceans are blue, the land above them green, the peaks white.
  EXPECT_GT(b("Water", 40), r("Water", 40) + 50);
  EXPECT_GT(g("Water", 150), b("Water", 150));
  EXPECT_GT(r("Water", 255) + g("Water", 255) + b("Water", 255), 700);
  // The molten worlds glow red and orange in their low pools.
  for (const char* molten : {"Lava", "Molten Iron", "Molten Tin"}) {
    EXPECT_GT(r(molten, 20), 240) << molten;
    EXPECT_GT(r(molten, 20), b(molten, 20) + 60) << molten;
  }
  std::memset(planetColorTables, 0, sizeof planetColorTables);
}

}  // namespace
