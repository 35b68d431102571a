#include "surface/terrain.h"

#include <array>
#include <utility>
#include <vector>

#include "platform/random.h"

Terrain terrain;

namespace {

// The height field is 2^9 + 1 points a side: the last row and column repeat
// the first ones so that the field wraps round the planet.
constexpr int gridSize = heightFieldSize;
constexpr int gridLast = gridSize - 1;
constexpr int passes = 9;
constexpr int startElevation = 128;

class Grid {
 public:
  Grid() : cells_(heightFieldSize * heightFieldSize, startElevation) {}
  int at(int row, int column) const { return cells_[static_cast<std::size_t>(row * gridSize + column)]; }
  void set(int row, int column, int value) {
    cells_[static_cast<std::size_t>(row * gridSize + column)] = static_cast<std::uint8_t>(value);
  }
  std::vector<std::uint8_t> release() { return std::move(cells_); }

 private:
  std::vector<std::uint8_t> cells_;
};

// The neighbours' sum is read before the one random draw of the point.
int displaced(int sum, int range) { return clampByte(sum / 4 + randomOffset(range)); }

void displacePass(Grid& g, int n, int s, int m) {
  const int h = s / 2;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const int a =
          g.at(j * s, i * s) + g.at((j + 1) * s, i * s) + g.at(j * s, (i + 1) * s) + g.at((j + 1) * s, (i + 1) * s);
      g.set(j * s + h, i * s + h, displaced(a, m));
    }
  }
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const int centreRow = j * s + h, centreColumn = i * s + h;
      // Lower edge; the last row of squares takes the first row's centre as the one below.
      const int belowRow = j == n - 1 ? h : (j + 1) * s + h;
      const int b = g.at(centreRow, centreColumn) + g.at(belowRow, centreColumn) + g.at((j + 1) * s, i * s) +
                    g.at((j + 1) * s, (i + 1) * s);
      const int lower = displaced(b, m);
      g.set((j + 1) * s, centreColumn, lower);
      if (j == n - 1) g.set(0, centreColumn, lower);
      // Right edge; the last column of squares takes the first column's centre as the one to the right.
      const int rightColumn = i == n - 1 ? h : (i + 1) * s + h;
      const int d = g.at(j * s, (i + 1) * s) + g.at((j + 1) * s, (i + 1) * s) + g.at(centreRow, centreColumn) +
                    g.at(centreRow, rightColumn);
      const int right = displaced(d, m);
      g.set(centreRow, (i + 1) * s, right);
      if (i == n - 1) g.set(centreRow, 0, right);
    }
  }
}

// Weights by column offset (outer) and row offset (inner), -3 to +3; they sum to 140.
constexpr int kernelSum = 140;
constexpr int kernel[7][7] = {
    {1, 1, 2, 2, 2, 1, 1}, {1, 2, 2, 4, 2, 2, 1}, {2, 2, 4, 8, 4, 2, 2}, {2, 4, 8, 16, 8, 4, 2},
    {2, 2, 4, 8, 4, 2, 2}, {1, 2, 2, 4, 2, 2, 1}, {1, 1, 2, 2, 2, 1, 1},
};

std::uint8_t& cell(Terrain& map, int x, int y) { return map.cells[x * terrainHeight + y]; }

}  // namespace

int randomOffset(int m) {
  if (m <= 0) return 0;  // no range, no displacement
  const int r = nextRandom() % m;
  return r > m / 2 ? r - m : r;
}

int clampByte(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }

std::vector<std::uint8_t> heightField(std::int32_t seed) {
  seedRandom(static_cast<unsigned int>(seed));
  Grid g;
  for (int k = 1; k <= passes; ++k) {
    const int n = 1 << (k - 1);
    displacePass(g, n, gridLast / n, 255 / k);
  }
  return g.release();
}

void generateTerrain(Terrain& map, std::int32_t seed) {
  const std::vector<std::uint8_t> field = heightField(seed);
  auto at = [&](int row, int column) { return field[static_cast<std::size_t>(row * heightFieldSize + column)]; };
  // One cell per degree: 1.425 grid rows per column of longitude and 2.85 grid
  // columns per row of latitude, summed in single precision as the surface has
  // always been sampled.
  float u = 0.0f;
  for (int x = 0; x < terrainWidth; ++x) {
    float v = 0.0f;
    for (int y = 0; y < terrainHeight; ++y) {
      cell(map, x, y) = at(static_cast<int>(u), static_cast<int>(v));
      v = static_cast<float>(static_cast<double>(v) + 2.85);
    }
    u = static_cast<float>(static_cast<double>(u) + 1.425);
  }
}

void smoothTerrain(Terrain& map) {
  // The smoothing works in place, so cells already smoothed feed later ones.
  // While column x is smoothed its six neighbouring columns do not change:
  // their part of every sum is taken at once from wrapped copies, and only the
  // column's own part is summed cell by cell from the live values.
  constexpr int pad = 3;
  constexpr int padded = terrainHeight + 2 * pad;
  std::array<std::array<int, padded>, 7> columns{};
  std::array<int, terrainHeight> others{};
  for (int x = 0; x < terrainWidth; ++x) {
    for (int dx = -3; dx <= 3; ++dx) {
      if (dx == 0) continue;
      const int cx = (x + dx + terrainWidth) % terrainWidth;
      auto& column = columns[static_cast<std::size_t>(dx + 3)];
      for (int k = 0; k < padded; ++k)
        column[static_cast<std::size_t>(k)] = cell(map, cx, (k - pad + terrainHeight) % terrainHeight);
    }
    others.fill(0);
    for (int dx = -3; dx <= 3; ++dx) {
      if (dx == 0) continue;
      const auto& column = columns[static_cast<std::size_t>(dx + 3)];
      const int* w = kernel[dx + 3];
      for (int y = 0; y < terrainHeight; ++y) {
        int sum = 0;
        for (int dy = 0; dy < 7; ++dy) sum += w[dy] * column[static_cast<std::size_t>(y + dy)];
        others[static_cast<std::size_t>(y)] += sum;
      }
    }
    const int* w = kernel[3];
    for (int y = 0; y < terrainHeight; ++y) {
      int sum = others[static_cast<std::size_t>(y)];
      for (int dy = -3; dy <= 3; ++dy) sum += w[dy + 3] * cell(map, x, (y + dy + terrainHeight) % terrainHeight);
      cell(map, x, y) = static_cast<std::uint8_t>(sum / kernelSum);
    }
  }
}
