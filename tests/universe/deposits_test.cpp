#include "support/test_support.h"

namespace {

Planet planetWith(int seed, int density, const char* a, const char* b, const char* c) {
  Planet p;
  p.Seed = seed;
  p.MineralDensity = density;
  std::snprintf(p.Litho[0], sizeof p.Litho[0], "%s", a);
  std::snprintf(p.Litho[1], sizeof p.Litho[1], "%s", b);
  std::snprintf(p.Litho[2], sizeof p.Litho[2], "%s", c);
  return p;
}

auto fields(const MineralDeposit& d) { return std::tuple(d.x, d.y, int(d.kind), d.amount); }

}  // namespace

// Golden lists from tools/planet_reference.py, written from the drawing rules alone.
TEST(DepositsTest, SeedsGiveTheReferenceDeposits) {
  struct Case {
    int seed, density;
    const char* litho[3];
    int count;
    MineralDeposit first, last;
  };
  const Case cases[] = {
      {1, 100, {"Iron", "Titanium", "Platinum"}, 846, {0, 25, 9, 1.45f}, {359, 99, 10, 4.73f}},
      {73415, 285, {"Iron", "Titanium", "Platinum"}, 2283, {0, 49, 10, 3.20f}, {359, 176, 5, 4.20f}},
      {2000000000, 5, {"Gold", "Silver", "Nothing"}, 43, {10, 144, 16, 5.64f}, {347, 61, 17, 6.17f}},
      {-424242, 0, {"Shyneum", "Lead", "Gold"}, 4, {142, 170, 0, 4.34f}, {346, 109, 21, 6.81f}},
  };
  for (const Case& c : cases) {
    const Planet p = planetWith(c.seed, c.density, c.litho[0], c.litho[1], c.litho[2]);
    MineralDepositList list;
    ASSERT_EQ(generateMineralDeposits(list, &p), c.count) << c.seed;
    ASSERT_EQ(list.size(), std::size_t(c.count));
    EXPECT_EQ(fields(list.front()), fields(c.first)) << c.seed;
    EXPECT_EQ(fields(list.back()), fields(c.last)) << c.seed;
  }
}

TEST(DepositsTest, DensityDecidesHowManyPointsCarryOne) {
  // 0 still keeps the points where rand() mod 10,000 is exactly 0; 9,999 and more take every point.
  for (auto [density, least, most] : {std::tuple{9999, 64800, 64800}, {20000, 64800, 64800}, {0, 0, 30}, {-1, 0, 0}}) {
    const Planet p = planetWith(97001, density, "Iron", "Iron", "Iron");
    MineralDepositList list;
    const int n = generateMineralDeposits(list, &p);
    EXPECT_TRUE(n >= least && n <= most) << density << ": " << n;
    EXPECT_EQ(n, int(list.size()));
    for (const MineralDeposit& d : list) ASSERT_TRUE(d.kind < mineralCount && d.amount >= 0.0f && d.amount <= 9.99f);
    if (most == 64800) {
      EXPECT_EQ(std::pair(list[1].x, list[1].y), std::pair(0, 1)) << "rows run inside columns";
      EXPECT_EQ(std::pair(list[180].x, list[180].y), std::pair(1, 0));
    }
  }
  MineralDepositList list{{1, 1, 1, 1.0f}};
  EXPECT_EQ(generateMineralDeposits(list, nullptr), 0);
  freeMineralDeposits(list);
  EXPECT_TRUE(list.empty());
}

TEST(DepositsTest, LithosphereWeightsTheKinds) {
  // Every point carries one: the share of each kind follows the table of 100 entries.
  struct Case {
    const char* litho[3];
    int kind, entries;
  };
  for (const Case& c : {Case{{"Gold", "Gold", "Gold"}, 17, 37}, Case{{"Gold", "Silver", "Tin"}, 17, 20},
                        Case{{"Gold", "Silver", "Tin"}, 16, 14}, Case{{"Gold", "Silver", "Tin"}, 7, 9},
                        Case{{"Gold", "Silver", "Tin"}, 21, 3}, Case{{"Dust", "Rock", "Ice"}, 0, 37}}) {
    const Planet p = planetWith(424242, 9999, c.litho[0], c.litho[1], c.litho[2]);
    MineralDepositList list;
    generateMineralDeposits(list, &p);
    const auto n = std::count_if(list.begin(), list.end(), [&](const MineralDeposit& d) { return d.kind == c.kind; });
    EXPECT_NEAR(100.0 * double(n) / double(list.size()), c.entries, 1.0) << mineralName(std::uint8_t(c.kind));
  }
}
