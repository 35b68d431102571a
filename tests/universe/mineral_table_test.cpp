#include <gtest/gtest.h>

#include <string>

#include "universe/planet.h"

namespace {

TEST(MineralTableTest, NamesAndNumbersRoundTrip) {
  for (int i = 0; i < mineralCount; ++i) {
    EXPECT_EQ(mineralNumber(mineralName(static_cast<std::uint8_t>(i))), i) << mineralName(static_cast<std::uint8_t>(i));
  }
  EXPECT_STREQ(mineralName(0), "Lead");
  EXPECT_STREQ(mineralName(9), "Aluminum");
  EXPECT_STREQ(mineralName(20), "Rodnium");
  EXPECT_STREQ(mineralName(21), "Shyneum");
  EXPECT_STREQ(mineralName(22), "Unknown");
  EXPECT_STREQ(mineralName(255), "Unknown");
  EXPECT_EQ(mineralNumber("Gold"), 17);
  // Anything that is not exactly a mineral's name counts as lead.
  EXPECT_EQ(mineralNumber("gold"), 0);
  EXPECT_EQ(mineralNumber("Gold "), 0);
  EXPECT_EQ(mineralNumber(""), 0);
  EXPECT_EQ(mineralNumber(nullptr), 0);
}

TEST(MineralTableTest, ColoursArePackedRedGreenBlueAlpha) {
  EXPECT_EQ(mineralColor(17, 255), 0xFECF2CFFu);
  EXPECT_EQ(mineralColor(17, 0), 0xFECF2C00u);
  EXPECT_EQ(mineralColor(0, 128), 0xF6967980u);
  EXPECT_EQ(mineralColor(21, 255), 0x202020FFu);
  EXPECT_EQ(mineralColor(1, 7), 0x9E0B0E07u);
  EXPECT_EQ(mineralColor(22, 0), 0xFFFFFFFFu);
  EXPECT_EQ(mineralColor(30, 12), 0xFFFFFFFFu);
}

}  // namespace
