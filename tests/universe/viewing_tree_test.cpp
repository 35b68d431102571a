#include "support/test_support.h"

using Cells = std::vector<std::pair<int, int>>;

// Every cell's list holds the objects of the 11 x 11 square round it, column by column: a scattered field, a dense
// block and the map's edges.
TEST(ViewingTreeTest, ListsRunColumnByColumnAndMatchTheSquareEverywhere) {
  PlacedObjects objects;
  seedRandom(4242);
  for (int i = 0; i < 3000; ++i) objects.place(nextRandom() % 500, nextRandom() % 500);
  for (int i = 0; i < 180; ++i) objects.place(200 + i / 12, 100 + i % 12);
  for (int i = 0; i < 500; i += 7) objects.place(i, 0), objects.place(499, i);
  buildViewingTree(starMap);
  int mismatches = 0;
  for (int i = 0; i < 500 * 500; ++i) {
    const int x = i / 500, y = i % 500;
    Cells expected, listed;
    for (int j = 0; j < 121; ++j) {
      const int cx = x - viewReach + j / 11, cy = y - viewReach + j % 11;
      if (cx >= 0 && cx < 500 && cy >= 0 && cy < 500 && starMap[cx][cy].object) expected.emplace_back(cx, cy);
    }
    for (const ViewNode* n = starMap[x][y].viewList; n; n = n->next) listed.emplace_back(n->x, n->y);
    mismatches += listed != expected;
  }
  EXPECT_EQ(mismatches, 0);
  releaseViewingTree(starMap);
  EXPECT_TRUE(starMap[499][0].viewList == nullptr && starMap[499][0].object) << "the objects stay";
}
