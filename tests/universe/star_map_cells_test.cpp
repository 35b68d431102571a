#include <string>

#include "platform/data_file.h"
#include "support/test_support.h"
#include "universe/star_map.h"

// Text read from memory: the cells filled come back once each, the problems
// name the file and line, and emptying those cells leaves the whole map empty.
TEST(StarMapCells, ReadFromMemoryReturnsTheFilledCellsAndEmptyingThemEmptiesTheMap) {
  ensureScreen();
  clearStarMap(starMap);
  starMapCounts = StarMapCounts{};
  const std::string text = "3\n4\nG\nE\n0\n3\n4\nK\nE\n0\n600\n1\nM\nE\n0\n7\n8\nM\nE\n0\n";
  LogWatch log;
  DataFile file(DataFile::Text{text});
  const std::vector<StarMapPosition> placed = readStarmap(starMap, file, "Starmap.txt");
  ASSERT_EQ(placed.size(), 2u);
  EXPECT_EQ(placed[0].x * 1000 + placed[0].y, 3004);
  EXPECT_EQ(placed[1].x * 1000 + placed[1].y, 7008);
  EXPECT_STREQ(starMap[3][4].object->Class, "K");
  EXPECT_EQ(starMapCounts.totalStars, 2);
  EXPECT_TRUE(log.saw("Starmap.txt line 7: a second object at 3, 4 replaces the first"));
  EXPECT_TRUE(log.saw("Starmap.txt line 12: position 600, 1 is off the map; object skipped"));
  clearStarMapCells(starMap, placed);
  int left = 0;
  for (const auto& column : starMap)
    for (const StarMapCell& cell : column) left += cell.object != nullptr;
  EXPECT_EQ(left, 0);
}
