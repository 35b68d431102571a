#include "support/test_support.h"

using Cells = std::vector<std::pair<int, int>>;

static Cells viewList(int x, int y) {
  Cells out;
  for (const ViewNode* n = starMap[x][y].viewList; n; n = n->next) out.emplace_back(n->x, n->y);
  return out;
}

class ViewingTreeTest : public ::testing::Test {
 protected:
  void TearDown() override { releaseViewingTree(starMap); }
  PlacedObjects objects;
};

TEST_F(ViewingTreeTest, ListsRunColumnByColumnAndMatchTheSquareEverywhere) {
  objects.place(10, 12);
  buildViewingTree(starMap);
  EXPECT_EQ(viewList(10, 11), (Cells{{10, 12}}));
  // A rebuild shows the map as it is now: a scattered field, a dense block and the map's edges.
  seedRandom(4242);
  for (int i = 0; i < 3000; ++i) objects.place(nextRandom() % 500, nextRandom() % 500);
  for (int i = 0; i < 180; ++i) objects.place(200 + i / 12, 100 + i % 12);
  for (int i = 0; i < 500; i += 7) objects.place(i, 0), objects.place(499, i);
  buildViewingTree(starMap);
  int mismatches = 0;
  for (int i = 0; i < 500 * 500; ++i) {
    const int x = i / 500, y = i % 500;
    Cells expected;  // every object in the 11 x 11 square, column by column
    for (int j = 0; j < 121; ++j) {
      const int cx = x - viewReach + j / 11, cy = y - viewReach + j % 11;
      if (cx >= 0 && cx < 500 && cy >= 0 && cy < 500 && starMap[cx][cy].object) expected.emplace_back(cx, cy);
    }
    mismatches += viewList(x, y) != expected;
  }
  EXPECT_EQ(mismatches, 0);
  releaseViewingTree(starMap);
  EXPECT_TRUE(starMap[10][11].viewList == nullptr && starMap[10][12].object) << "the objects stay";
}
