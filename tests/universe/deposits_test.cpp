#include "support/test_support.h"

namespace {

Planet planetWith(int seed, int density, const char* const (&litho)[3]) {
  Planet p;
  p.Seed = seed;
  p.MineralDensity = density;
  for (int i = 0; i < 3; ++i) std::snprintf(p.Litho[i], sizeof p.Litho[i], "%s", litho[i]);
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
    const Planet p = planetWith(c.seed, c.density, c.litho);
    MineralDepositList list;
    ASSERT_EQ(generateMineralDeposits(list, &p), c.count) << c.seed;
    ASSERT_EQ(list.size(), std::size_t(c.count));
    EXPECT_EQ(fields(list.front()), fields(c.first)) << c.seed;
    EXPECT_EQ(fields(list.back()), fields(c.last)) << c.seed;
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
    const Planet p = planetWith(424242, 9999, c.litho);
    MineralDepositList list;
    EXPECT_EQ(generateMineralDeposits(list, &p), 64800);
    const auto n = std::count_if(list.begin(), list.end(), [&](const MineralDeposit& d) { return d.kind == c.kind; });
    EXPECT_NEAR(100.0 * double(n) / double(list.size()), c.entries, 1.0) << mineralName(std::uint8_t(c.kind));
  }
}

TEST(DepositsTest, MineralNamesNumbersAndColoursWithFallbacks) {
  for (int i = 0; i < mineralCount; ++i) EXPECT_EQ(mineralNumber(mineralName(std::uint8_t(i))), i) << i;
  for (const char* name : {"gold", "Gold ", "", static_cast<const char*>(nullptr)}) EXPECT_EQ(mineralNumber(name), 0);
  EXPECT_EQ(mineralColor(mineralNumber("Gold"), 0x80), 0xFECF2C80u) << "red, green, blue, alpha";
  for (int number : {22, 255}) {
    EXPECT_STREQ(mineralName(number), "Unknown");
    EXPECT_EQ(mineralColor(number, 12), 0xFFFFFFFFu) << "unknown minerals are white";
  }
}
