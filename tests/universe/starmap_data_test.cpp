#include <set>

#include "support/test_support.h"

static std::string slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(StarmapDataTest, RegeneratingWritesTheSameFile) {
  TempDir dir;
  ASSERT_EQ(std::system(("'" MAKE_STARMAP_BINARY "' '" + dir.path("Starmap.txt") + "'").c_str()), 0);
  const std::string shipped = slurp(PROSPECTOR_SOURCE_DIR "/data/Starmap.txt");
  EXPECT_TRUE(!shipped.empty() && slurp(dir.path("Starmap.txt")) == shipped) << "regenerate data/Starmap.txt";
}

TEST(StarmapDataTest, ShippedStarMapLoadsCleanlyWithRealisticStarsAndPlanets) {
  LogWatch log;
  loadStarmapFile(starMap, PROSPECTOR_SOURCE_DIR "/data/Starmap.txt");
  loadPlanetColors(PROSPECTOR_SOURCE_DIR "/data/PlanetColor.txt");
  EXPECT_FALSE(log.saw(" line ")) << "unknown spheres and minerals, lanes given twice";
  const StarMapCounts& c = starMapCounts;
  EXPECT_TRUE(c.totalStars >= 2000 && c.totalStars <= 6000) << c.totalStars;
  // M most common, then K, G, F, A, B, O; the remnants rare.
  for (int i = 1; i < 7; ++i) EXPECT_GT(c.classCounts[i - 1], c.classCounts[i]) << starClassNames[i];
  for (int i = 7; i < 10; ++i) EXPECT_TRUE(c.classCounts[i] > 0 && c.classCounts[i] < c.totalStars / 15) << i;
  std::set<int> seeds;
  int rich = 0, bonanzas = 0;
  for (int i = 0; i < starMapSize * starMapSize; ++i) {
    const StellarObject* o = starMap[i / starMapSize][i % starMapSize].object;
    if (!o) continue;
    EXPECT_LE(std::strlen(o->Eco), 7u) << "the chart's label cuts '" << o->Eco << "'";
    for (const Planet* p : o->Planets) {
      if (!p) continue;
      // Never colder than the 3 K glow of the sky, and each seed used once.
      EXPECT_TRUE(p->MinTemp >= -270 && p->MinTemp <= p->MaxTemp && p->MineralDensity >= 0 &&
                  p->MineralDensity < 10000 && seeds.insert(p->Seed).second)
          << "seed " << p->Seed;
      rich += p->MineralDensity >= 250;
      bonanzas += p->MineralDensity >= 1000;
    }
  }
  EXPECT_TRUE(rich > 50 && rich < c.totalPlanets / 10) << rich << " rich worlds";
  EXPECT_TRUE(bonanzas > 5 && bonanzas < c.totalPlanets / 100) << bonanzas << " worlds of density 1000 and more";
  EXPECT_TRUE(starMap[100][100].object && starMap[100][100].object->NumOfPlanets == 7) << "the home system";
  clearStarMap(starMap);
}
