#include <cstdint>

#include "support/test_support.h"

namespace {

// 32-bit FNV-1a over the cells in storage order, as tools/planet_reference.py computes it.
std::uint32_t checksum(const Terrain& map) {
  std::uint32_t h = 0x811C9DC5u;
  for (std::uint8_t c : map.cells) h = (h ^ c) * 0x01000193u;
  return h;
}

int at(const Terrain& map, int x, int y) { return map.cells[x * terrainHeight + y]; }
std::vector<int> probes(const Terrain& map) { return {at(map, 0, 0), at(map, 180, 90), at(map, 359, 179)}; }
bool same(const Terrain& a, const Terrain& b) {
  return std::equal(std::begin(a.cells), std::end(a.cells), std::begin(b.cells));
}

// Golden values from tools/planet_reference.py, an independent transcription of
// the generation rules run once; they fix the surfaces of the shipped planets.
struct TerrainCase {
  std::int32_t seed;
  std::uint32_t generated, smoothed;
  std::vector<int> raw, smooth;  // cells (0, 0), (180, 90), (359, 179)
};
const TerrainCase terrainCases[] = {
    {1, 0xA024E70Bu, 0x85EC24C3u, {128, 136, 136}, {118, 132, 114}},
    {73415, 0xC8A89A80u, 0x85734EEDu, {128, 113, 120}, {122, 106, 115}},
    {2000000000, 0x193D93F3u, 0x869A0E2Eu, {128, 117, 109}, {119, 117, 112}},
    {-424242, 0x618876FEu, 0x0E981AD8u, {128, 59, 142}, {133, 51, 136}},
};

// The smoothing written the plain way, cell by cell in place with wrapped neighbours.
void plainSmooth(Terrain& map) {
  static const int k[7][7] = {{1, 1, 2, 2, 2, 1, 1},  {1, 2, 2, 4, 2, 2, 1}, {2, 2, 4, 8, 4, 2, 2},
                              {2, 4, 8, 16, 8, 4, 2}, {2, 2, 4, 8, 4, 2, 2}, {1, 2, 2, 4, 2, 2, 1},
                              {1, 1, 2, 2, 2, 1, 1}};
  for (int x = 0; x < 360; ++x)
    for (int y = 0; y < 180; ++y) {
      int s = 0;
      for (int dy = -3; dy <= 3; ++dy)
        for (int dx = -3; dx <= 3; ++dx) s += k[dy + 3][dx + 3] * at(map, (x + dx + 360) % 360, (y + dy + 180) % 180);
      map.cells[x * 180 + y] = std::uint8_t(s / 140);
    }
}

}  // namespace

TEST(TerrainTest, SeedsGiveTheReferenceSurfaces) {
  auto map = std::make_unique<Terrain>();
  for (const TerrainCase& c : terrainCases) {
    generateTerrain(*map, c.seed);
    EXPECT_EQ(checksum(*map), c.generated) << c.seed;
    EXPECT_EQ(probes(*map), c.raw) << c.seed;
    smoothTerrain(*map);
    EXPECT_EQ(checksum(*map), c.smoothed) << c.seed;
    EXPECT_EQ(probes(*map), c.smooth) << c.seed;
  }
}

TEST(TerrainTest, HeightFieldCornersStayAndTheLastRowAndColumnRepeatTheFirst) {
  for (std::int32_t seed : {0, 1, 97001, -7}) {
    const std::vector<std::uint8_t> g = heightField(seed);
    ASSERT_EQ(g.size(), std::size_t(heightFieldSize * heightFieldSize));
    auto cell = [&](int row, int column) { return int(g[std::size_t(row * heightFieldSize + column)]); };
    EXPECT_EQ((std::vector{cell(0, 0), cell(0, 512), cell(512, 0), cell(512, 512)}), (std::vector{128, 128, 128, 128}));
    for (int k = 0; k <= 512; ++k) {
      ASSERT_EQ(cell(512, k), cell(0, k)) << "seed " << seed << " column " << k;
      ASSERT_EQ(cell(k, 512), cell(k, 0)) << "seed " << seed << " row " << k;
    }
  }
}

TEST(TerrainTest, SmoothingWrapsLongitudeAndLatitudeInPlace) {
  // Cells already smoothed carry a spike on towards higher columns and rows, never back.
  struct Spike {
    int x, y;
    std::vector<std::pair<int, int>> reached, untouched;
  };
  const Spike spikes[] = {
      {359, 90, {{0, 90}, {2, 93}}, {{12, 90}, {355, 90}}},       // east edge into longitude 0
      {0, 90, {{359, 90}, {359, 89}}, {{356, 90}, {12, 90}}},     // longitude 0 into the east edge
      {180, 179, {{180, 0}, {182, 2}}, {{180, 12}, {180, 175}}},  // south edge into the north
      {180, 0, {{180, 179}, {178, 177}}, {{180, 176}, {180, 12}}},
      {-1, 0, {}, {}},  // every cell 255: the sums must not overflow
  };
  auto map = std::make_unique<Terrain>(), plain = std::make_unique<Terrain>();
  for (const Spike& s : spikes) {
    *map = Terrain{};
    if (s.x < 0) {
      std::fill(std::begin(map->cells), std::end(map->cells), std::uint8_t(255));
    } else {
      map->cells[s.x * 180 + s.y] = 255;
    }
    *plain = *map;
    smoothTerrain(*map);
    plainSmooth(*plain);
    for (auto [x, y] : s.reached) EXPECT_GT(at(*map, x, y), 0) << s.x << "," << s.y << " -> " << x << "," << y;
    for (auto [x, y] : s.untouched) EXPECT_EQ(at(*map, x, y), 0) << s.x << "," << s.y << " -> " << x << "," << y;
    EXPECT_TRUE(same(*map, *plain)) << s.x << "," << s.y;
  }
  EXPECT_EQ(*std::min_element(std::begin(map->cells), std::end(map->cells)), 255);
}
