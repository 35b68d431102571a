#include "universe/viewing_tree.h"

#include <utility>
#include <vector>

#include "platform/random.h"
#include "shell/debug_log.h"
#include "support/test_support.h"

namespace {

using Position = std::pair<int, int>;

std::vector<Position> viewList(int x, int y) {
  std::vector<Position> out;
  for (const ViewNode* n = starMap[x][y].viewList; n; n = n->next) out.emplace_back(n->x, n->y);
  return out;
}

// What a cell's list must hold: every object in the 11 x 11 square around it, column by column.
std::vector<Position> expectedList(int x, int y) {
  std::vector<Position> out;
  for (int dx = -viewReach; dx <= viewReach; ++dx) {
    for (int dy = -viewReach; dy <= viewReach; ++dy) {
      const int cx = x + dx, cy = y + dy;
      if (cx < 0 || cy < 0 || cx >= starMapSize || cy >= starMapSize) continue;
      if (starMap[cx][cy].object) out.emplace_back(cx, cy);
    }
  }
  return out;
}

class ViewingTreeTest : public ::testing::Test {
 protected:
  void TearDown() override { clearStarMap(starMap); }
  void put(int x, int y) {
    if (!starMap[x][y].object) starMap[x][y].object = new StellarObject{x, y, "M", "", 0, {}};
  }
};

TEST_F(ViewingTreeTest, CornerObjectIsSeenFromItsThirtySixNeighbours) {
  put(0, 0);
  const int logged = debugLog.writeIndex;
  buildViewingTree(starMap);
  EXPECT_STREQ(debugLog.lines[logged], "Building viewing tree");
  int lists = 0;
  for (int x = 0; x < starMapSize; ++x) {
    for (int y = 0; y < starMapSize; ++y) {
      if (!starMap[x][y].viewList) continue;
      ++lists;
      EXPECT_TRUE(x <= 5 && y <= 5) << x << ", " << y;
      EXPECT_EQ(viewList(x, y), (std::vector<Position>{{0, 0}}));
    }
  }
  EXPECT_EQ(lists, 36);
}

TEST_F(ViewingTreeTest, CentralObjectIsSeenFromAnElevenByElevenSquare) {
  put(250, 250);
  buildViewingTree(starMap);
  int lists = 0;
  for (int x = 0; x < starMapSize; ++x) {
    for (int y = 0; y < starMapSize; ++y) lists += starMap[x][y].viewList != nullptr;
  }
  EXPECT_EQ(lists, 121);
  EXPECT_EQ(viewList(255, 245), (std::vector<Position>{{250, 250}}));
  EXPECT_EQ(viewList(245, 255), (std::vector<Position>{{250, 250}}));
  EXPECT_TRUE(viewList(256, 250).empty());
  EXPECT_TRUE(viewList(250, 244).empty());
  EXPECT_TRUE(viewList(0, 0).empty());
}

TEST_F(ViewingTreeTest, ListsRunColumnByColumnThenRowByRow) {
  put(10, 12);
  put(10, 10);
  put(9, 12);
  buildViewingTree(starMap);
  EXPECT_EQ(viewList(10, 11), (std::vector<Position>{{9, 12}, {10, 10}, {10, 12}}));
  clearStarMap(starMap);
  put(10, 10);
  put(10, 12);
  buildViewingTree(starMap);
  EXPECT_EQ(viewList(10, 11), (std::vector<Position>{{10, 10}, {10, 12}}));
}

TEST_F(ViewingTreeTest, EveryListMatchesTheSquareAroundItsCell) {
  // A crowded corner, a dense block and scattered objects, including the map's edges.
  seedRandom(4242);
  for (int i = 0; i < 3000; ++i) put(nextRandom() % starMapSize, nextRandom() % starMapSize);
  for (int x = 200; x < 215; ++x) {
    for (int y = 100; y < 112; ++y) put(x, y);
  }
  for (int i = 0; i < starMapSize; i += 7) {
    put(i, 0);
    put(499, i);
  }
  buildViewingTree(starMap);
  int mismatches = 0;
  for (int x = 0; x < starMapSize && mismatches < 5; ++x) {
    for (int y = 0; y < starMapSize && mismatches < 5; ++y) {
      if (viewList(x, y) != expectedList(x, y)) {
        ADD_FAILURE() << "list of " << x << ", " << y;
        ++mismatches;
      }
    }
  }
  EXPECT_EQ(viewList(207, 105).size(), 121u) << "the middle of the block sees all of the square";
}

TEST_F(ViewingTreeTest, RebuildingReflectsTheMapAsItIsNow) {
  put(100, 100);
  buildViewingTree(starMap);
  put(103, 100);
  buildViewingTree(starMap);
  EXPECT_EQ(viewList(101, 100), (std::vector<Position>{{100, 100}, {103, 100}}));
  releaseViewingTree(starMap);
  EXPECT_EQ(starMap[101][100].viewList, nullptr);
  EXPECT_NE(starMap[100][100].object, nullptr) << "releasing the lists leaves the objects";
}

TEST_F(ViewingTreeTest, EmptyMapHasNoLists) {
  buildViewingTree(starMap);
  for (int x = 0; x < starMapSize; x += 37) {
    for (int y = 0; y < starMapSize; y += 41) EXPECT_EQ(starMap[x][y].viewList, nullptr);
  }
}

}  // namespace
