#include "support/test_support.h"

TEST(MineralTableTest, NamesNumbersAndColoursWithFallbacks) {
  for (int i = 0; i < mineralCount; ++i) EXPECT_EQ(mineralNumber(mineralName(std::uint8_t(i))), i) << i;
  for (const char* name : {"gold", "Gold ", ""}) EXPECT_EQ(mineralNumber(name), 0) << "'" << name << "' reads as lead";
  EXPECT_EQ(mineralNumber(nullptr), 0);
  EXPECT_EQ(mineralColor(mineralNumber("Gold"), 0x80), 0xFECF2C80u) << "red, green, blue, alpha";
  for (int number : {22, 255}) EXPECT_STREQ(mineralName(number), "Unknown");
  for (int number : {22, 255}) EXPECT_EQ(mineralColor(number, 12), 0xFFFFFFFFu) << "unknown minerals are white";
}
