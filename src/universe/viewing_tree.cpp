#include "universe/viewing_tree.h"

#include <array>
#include <unordered_map>
#include <vector>

#include "base/debug_log.h"

namespace {

// All nodes of one map's lists live in one block, counted before it is filled
// so no node moves once linked. Keyed by the map, so a second map (a test's)
// never pulls the nodes from under the game's map.
std::unordered_map<const void*, std::vector<ViewNode>> nodePools;

// Calls visit(x, y, objectX, objectY) for every cell (x, y) and every object
// within reach of it, cell by cell in column-major order and, within a cell,
// in column-major order over the square around it. Each column's occupied rows
// are kept sorted, and a window slides down them as y grows, so the cost is
// the number of nodes plus a few steps per cell rather than 121 probes.
template <typename Visit>
void walkReach(const StarMap& map, Visit&& visit) {
  std::vector<std::vector<int>> occupiedRows(starMapSize);
  for (int x = 0; x < starMapSize; ++x) {
    for (int y = 0; y < starMapSize; ++y) {
      if (map[x][y].object) occupiedRows[x].push_back(y);
    }
  }
  for (int x = 0; x < starMapSize; ++x) {
    std::array<std::size_t, 2 * viewReach + 1> first{};
    for (int y = 0; y < starMapSize; ++y) {
      for (int dx = -viewReach; dx <= viewReach; ++dx) {
        const int column = x + dx;
        if (column < 0 || column >= starMapSize) continue;
        const std::vector<int>& rows = occupiedRows[column];
        std::size_t& k = first[dx + viewReach];
        while (k < rows.size() && rows[k] < y - viewReach) ++k;
        for (std::size_t i = k; i < rows.size() && rows[i] <= y + viewReach; ++i) visit(x, y, column, rows[i]);
      }
    }
  }
}

}  // namespace

void releaseViewingTree(StarMap& map) {
  for (auto& column : map) {
    for (StarMapCell& cell : column) cell.viewList = nullptr;
  }
  nodePools.erase(&map);
}

void buildViewingTree(StarMap& map) {
  logMessage("Building viewing tree");
  releaseViewingTree(map);

  std::size_t count = 0;
  walkReach(map, [&count](int, int, int, int) { ++count; });

  std::vector<ViewNode>& pool = nodePools[&map];
  pool.reserve(count);
  ViewNode* tail = nullptr;
  int tailX = -1, tailY = -1;
  walkReach(map, [&](int x, int y, int objectX, int objectY) {
    ViewNode& node = pool.emplace_back(ViewNode{objectX, objectY, nullptr});
    if (tail && tailX == x && tailY == y) {
      tail->next = &node;
    } else {
      map[x][y].viewList = &node;
    }
    tail = &node;
    tailX = x;
    tailY = y;
  });
}
