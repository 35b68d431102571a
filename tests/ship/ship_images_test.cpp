// The pictures drawn at build time for the game's own ship.
#include <SDL.h>
#include <SDL_image.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "ship/ship.h"
#include "support/test_support.h"

namespace {

SDL_Surface* load(const char* path) {
  SDL_Surface* image = IMG_Load(path);
  EXPECT_NE(image, nullptr) << path;
  return image;
}

Uint8 brightest(Uint32 rgb) {
  const Uint8 r = rgb >> 16, g = (rgb >> 8) & 0xFF, b = rgb & 0xFF;
  return std::max({r, g, b});
}

}  // namespace

TEST(ShipImagesGame, EveryPartOfTheBlueprintSitsUnderItsMarker) {
  ensureScreen();
  Ship ship;
  ASSERT_TRUE(readShipFile(ship, "Ships/Prospector.txt"));
  SDL_Surface* blueprint = load(("Ships/" + std::string(ship.shipClass) + "_large.bmp").c_str());
  ASSERT_NE(blueprint, nullptr);
  EXPECT_LE(blueprint->w, 530);
  EXPECT_LE(blueprint->h, 530);
  // The paper, its grid and the hull plating are all dark blue; every part is
  // drawn with a bright core, ring or turret right on its marker point.
  auto partAt = [&](const MarkerPoint& m) {
    return m.x >= 0 && m.y >= 0 && m.x < blueprint->w && m.y < blueprint->h &&
           brightest(pixelRGB(blueprint, m.x, m.y)) >= 150;
  };
  ASSERT_FALSE(ship.engineMarkers.empty());
  for (const MarkerPoint& m : ship.engineMarkers) EXPECT_TRUE(partAt(m)) << "engine " << m.x << "," << m.y;
  for (const MarkerPoint& m : ship.shieldMarkers) EXPECT_TRUE(partAt(m)) << "shield " << m.x << "," << m.y;
  for (const MarkerPoint& m : ship.powerPlantMarkers) EXPECT_TRUE(partAt(m)) << "plant " << m.x << "," << m.y;
  ASSERT_GT(ship.hardPointCount, 0);
  for (int i = 0; i < ship.hardPointCount; ++i) {
    ASSERT_FALSE(ship.hardPoints[i].markers.empty()) << i;
    for (const MarkerPoint& m : ship.hardPoints[i].markers) {
      // The turret's twin barrels stand a few pixels ahead of the mount.
      EXPECT_GE(brightest(pixelRGB(blueprint, m.x - 2, m.y - 12)), 200) << "hardpoint " << i;
    }
  }
  // Away from the ship the paper shows through.
  EXPECT_LT(brightest(pixelRGB(blueprint, 30, 480)), 150);
  SDL_FreeSurface(blueprint);
}

TEST(ShipImagesGame, SpritesAndArrowsHaveTheirSizesAndTransparentCorners) {
  ensureScreen();
  const struct {
    const char* path;
    int minSize, maxSize;
  } images[] = {
      {"Ships/Prospector.bmp", 30, 48},       {"Ships/Rover.bmp", 12, 20},         {"Buttons/Up_norm.bmp", 14, 14},
      {"Buttons/Up_highlight.bmp", 14, 14},   {"Buttons/Up_select.bmp", 14, 14},   {"Buttons/Down_norm.bmp", 14, 14},
      {"Buttons/Down_highlight.bmp", 14, 14}, {"Buttons/Down_select.bmp", 14, 14},
  };
  for (const auto& entry : images) {
    SDL_Surface* image = load(entry.path);
    if (!image) continue;
    EXPECT_GE(image->w, entry.minSize) << entry.path;
    EXPECT_LE(image->w, entry.maxSize) << entry.path;
    EXPECT_EQ(image->w, image->h) << entry.path;
    const bool sprite = std::string(entry.path).rfind("Ships/", 0) == 0;
    if (sprite) {
      // Drawn on black, which the colour key makes transparent.
      EXPECT_EQ(pixelRGB(image, 0, 0), 0u) << entry.path;
      EXPECT_NE(pixelRGB(image, image->w / 2, image->h / 2), 0u) << entry.path;
    } else {
      EXPECT_NE(pixelRGB(image, 0, 0), 0u) << entry.path << ": the border shows";
    }
    SDL_FreeSurface(image);
  }
}

TEST(ShipImagesGame, ArrowsPointTheWayTheyMove) {
  ensureScreen();
  for (const char* look : {"norm", "highlight", "select"}) {
    SDL_Surface* up = load((std::string("Buttons/Up_") + look + ".bmp").c_str());
    SDL_Surface* down = load((std::string("Buttons/Down_") + look + ".bmp").c_str());
    if (!up || !down) continue;
    // The wide base of the head is at the bottom of Up and the top of Down.
    // The head is the one pale colour of each button: every channel is high.
    auto lit = [](SDL_Surface* s, int y) {
      int n = 0;
      for (int x = 2; x < 12; ++x) {
        const Uint32 c = pixelRGB(s, x, y);
        n += std::min({c >> 16, (c >> 8) & 0xFF, c & 0xFF}) >= 130;
      }
      return n;
    };
    EXPECT_GT(lit(up, 9), lit(up, 4)) << look;
    EXPECT_GT(lit(down, 4), lit(down, 9)) << look;
    SDL_FreeSurface(up);
    SDL_FreeSurface(down);
  }
}
