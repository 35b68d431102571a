#include "support/test_support.h"

// The sample generator of the C standard: seeded with 1 it gives the published sequence, and again when reseeded.
TEST(RandomGenerator, FollowsTheIsoSampleSequenceAndRepeatsForASeed) {
  for (int round = 0; round < 2; ++round) {
    seedRandom(1);
    for (int expected : {16838, 5758, 10113, 17515, 31051}) EXPECT_EQ(nextRandom(), expected) << round;
  }
}
