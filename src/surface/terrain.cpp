#include "surface/terrain.h"

#include <array>
#include <memory>
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

// randomOffset with the range known when compiling, which spares a division per point.
template <int m>
int offsetIn(RandomSequence& random) {
  const int r = random.next() % m;
  return r > m / 2 ? r - m : r;
}

// Pass k (1 to 9): 2^(k-1) squares a side, range 255 / k. Every neighbour is
// read before the point's one random draw.
template <int k>
void displacePass(Grid& g, RandomSequence& random) {
  constexpr int n = 1 << (k - 1);
  constexpr int s = gridLast / n;
  constexpr int m = 255 / k;
  constexpr int h = s / 2;
  auto displaced = [&random](int sum) { return clampByte(sum / 4 + offsetIn<m>(random)); };
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const int a =
          g.at(j * s, i * s) + g.at((j + 1) * s, i * s) + g.at(j * s, (i + 1) * s) + g.at((j + 1) * s, (i + 1) * s);
      g.set(j * s + h, i * s + h, displaced(a));
    }
  }
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const int centreRow = j * s + h, centreColumn = i * s + h;
      // Lower edge; the last row of squares takes the first row's centre as the one below.
      const int belowRow = j == n - 1 ? h : (j + 1) * s + h;
      const int b = g.at(centreRow, centreColumn) + g.at(belowRow, centreColumn) + g.at((j + 1) * s, i * s) +
                    g.at((j + 1) * s, (i + 1) * s);
      const int lower = displaced(b);
      g.set((j + 1) * s, centreColumn, lower);
      if (j == n - 1) g.set(0, centreColumn, lower);
      // Right edge; the last column of squares takes the first column's centre as the one to the right.
      const int rightColumn = i == n - 1 ? h : (i + 1) * s + h;
      const int d = g.at(j * s, (i + 1) * s) + g.at((j + 1) * s, (i + 1) * s) + g.at(centreRow, centreColumn) +
                    g.at(centreRow, rightColumn);
      const int right = displaced(d);
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

std::vector<std::uint8_t> heightField(std::int32_t seed, RandomSequence& random) {
  // A local sequence the passes can keep in a register: the grid's byte
  // stores could otherwise alias the caller's.
  RandomSequence local(static_cast<unsigned int>(seed));
  Grid g;
  [&]<int... k>(std::integer_sequence<int, k...>) { (displacePass<k + 1>(g, local), ...); }
  (std::make_integer_sequence<int, passes>{});
  random = local;
  return g.release();
}

std::vector<std::uint8_t> heightField(std::int32_t seed) {
  RandomSequence random(0);
  std::vector<std::uint8_t> field = heightField(seed, random);
  setRandomState(random.state());
  return field;
}

void generateTerrain(Terrain& map, std::int32_t seed) {
  RandomSequence random(0);
  generateTerrain(map, seed, random);
  setRandomState(random.state());
}

void generateTerrain(Terrain& map, std::int32_t seed, RandomSequence& random) {
  const std::vector<std::uint8_t> field = heightField(seed, random);
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
  // their part of every sum is taken at once (the kernel's columns -d and +d
  // have the same weights), and so is the part of the column's own rows not
  // smoothed yet; only its three rows above, smoothed a moment ago, are summed
  // cell by cell. The columns are kept in 16 bits with their wrapped rows
  // either side, so the compiler adds eight rows at a time: every part sum
  // stays below 140 * 255.
  constexpr int pad = 3;
  constexpr int padded = terrainHeight + 2 * pad;
  using Column = std::array<std::uint16_t, padded>;
  const auto columns = std::make_unique<std::array<Column, terrainWidth>>();
  auto load = [&](int x, const std::uint8_t* c) {
    std::uint16_t* out = (*columns)[static_cast<std::size_t>(x)].data();
    for (int y = 0; y < terrainHeight; ++y) out[y + pad] = c[y];
    for (int k = 0; k < pad; ++k) {
      out[k] = c[terrainHeight - pad + k];
      out[terrainHeight + pad + k] = c[k];
    }
  };
  for (int x = 0; x < terrainWidth; ++x) load(x, &map.cells[x * terrainHeight]);
  alignas(32) std::uint16_t part[terrainHeight];
  for (int x = 0; x < terrainWidth; ++x) {
    const std::uint16_t* own = (*columns)[static_cast<std::size_t>(x)].data();
    // The column's own rows from its centre down, not smoothed yet (the last
    // rows' wrapped ones are, and are summed below instead).
    [&]<int... dy>(std::integer_sequence<int, dy...>) {
      for (int y = 0; y < terrainHeight; ++y)
        part[y] = static_cast<std::uint16_t>(((kernel[3][dy + 3] * own[y + dy + 3]) + ...));
    }
    (std::make_integer_sequence<int, 4>{});
    [&]<int... d>(std::integer_sequence<int, d...>) {
      auto pair = [&]<int offset>() {
        const std::uint16_t* left =
            (*columns)[static_cast<std::size_t>((x - offset + terrainWidth) % terrainWidth)].data();
        const std::uint16_t* right = (*columns)[static_cast<std::size_t>((x + offset) % terrainWidth)].data();
        [&]<int... dy>(std::integer_sequence<int, dy...>) {
          for (int y = 0; y < terrainHeight; ++y)
            part[y] =
                static_cast<std::uint16_t>(part[y] + ((kernel[3 + offset][dy] * (left[y + dy] + right[y + dy])) + ...));
        }
        (std::make_integer_sequence<int, 7>{});
      };
      (pair.template operator()<d + 1>(), ...);
    }
    (std::make_integer_sequence<int, pad>{});
    std::uint8_t* column = &map.cells[x * terrainHeight];
    int above[pad] = {own[0], own[1], own[2]};  // rows 177 to 179, not smoothed yet
    for (int y = 0; y < terrainHeight; ++y) {
      int sum = part[y] + kernel[3][0] * above[0] + kernel[3][1] * above[1] + kernel[3][2] * above[2];
      if (y >= terrainHeight - pad) {
        // Across the south edge the rows below are the first ones, smoothed by now.
        for (int dy = 4; dy < 7; ++dy) {
          const int row = y + dy - 3;
          if (row >= terrainHeight) sum += kernel[3][dy] * (column[row - terrainHeight] - own[row + pad]);
        }
      }
      const int value = sum / kernelSum;
      column[y] = static_cast<std::uint8_t>(value);
      above[0] = above[1];
      above[1] = above[2];
      above[2] = value;
    }
    load(x, column);
  }
}
