#include "universe/starfield.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

#include "shell/debug_log.h"
#include "support/test_support.h"

namespace {

void clearField() {
  while (starlist) removeStar(starlist);
}

std::vector<BackgroundStar*> starsInOrder() {
  std::vector<BackgroundStar*> stars;
  for (BackgroundStar* s = starlist; s; s = s->next) stars.push_back(s);
  return stars;
}

// Checks both directions of the links, so a broken prev pointer can't hide.
void expectWellLinked() {
  const std::vector<BackgroundStar*> stars = starsInOrder();
  if (stars.empty()) return;
  EXPECT_EQ(stars.front()->prev, nullptr);
  for (std::size_t i = 1; i < stars.size(); ++i) EXPECT_EQ(stars[i]->prev, stars[i - 1]) << "star " << i;
}

const char* lastLogLine() { return debugLog.lines[previousLine(debugLog.writeIndex)]; }

struct SurfaceDeleter {
  void operator()(SDL_Surface* s) const { SDL_FreeSurface(s); }
};
using OwnedSurface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

OwnedSurface blackPane() {
  const SDL_PixelFormat* f = SDL_GetVideoSurface()->format;
  return OwnedSurface(SDL_CreateRGBSurface(SDL_SWSURFACE, 500, 500, 32, f->Rmask, f->Gmask, f->Bmask, 0));
}

class StarfieldTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ensureScreen();
    clearField();
  }
  void TearDown() override { clearField(); }
};

// One star alone in the field, moved by one frame at the given velocity.
int stepOf(int Z, int velocityX) {
  clearField();
  addStar(300, 300, Z, 1, 2, 3);
  drawStars(nullptr, velocityX, 0);
  return starlist->X - 300;
}

}  // namespace

TEST_F(StarfieldTest, StarsGoToTheHeadAndRemovalKeepsTheLinks) {
  addStar(1, 1, 130, 10, 20, 30);
  addStar(2, 2, 140, 10, 20, 30);
  addStar(3, 3, 150, 10, 20, 30);
  ASSERT_EQ(starCount(), 3);
  EXPECT_EQ(starlist->X, 3);
  EXPECT_EQ(starlist->a, 255);
  expectWellLinked();

  removeStar(starlist->next);  // the middle one
  EXPECT_EQ(starCount(), 2);
  EXPECT_EQ(starlist->next->X, 1);
  expectWellLinked();
  removeStar(starlist->next);  // the tail
  removeStar(starlist);        // the only one left
  EXPECT_EQ(starlist, nullptr);
  EXPECT_EQ(starCount(), 0);
}

TEST_F(StarfieldTest, InitialisationMakesFiveHundredStarsInsideTheField) {
  addStar(5, 5, 200, 1, 1, 1);  // an old field is replaced, not added to
  initBackgroundStars();
  EXPECT_STREQ(debugLog.lines[previousLine(debugLog.writeIndex)], "Initializing background stars");
  EXPECT_EQ(starCount(), 500);
  expectWellLinked();
  for (const BackgroundStar* s : starsInOrder()) {
    EXPECT_GE(s->X, 0);
    EXPECT_LT(s->X, 600);
    EXPECT_GE(s->Y, 0);
    EXPECT_LT(s->Y, 600);
    EXPECT_GE(s->Z, 128);
    EXPECT_LE(s->Z, 255);
    EXPECT_LE(s->r, 254);
    EXPECT_LE(s->g, 254);
    EXPECT_LE(s->b, 254);
    EXPECT_EQ(s->a, 255);
  }
}

TEST_F(StarfieldTest, NearerStarsStepFurther) {
  EXPECT_EQ(stepOf(130, 10), 1);
  EXPECT_EQ(stepOf(200, 10), 2);  // 10 / 4, truncated
  EXPECT_EQ(stepOf(250, 10), 10);
  EXPECT_EQ(stepOf(255, 10), 20);
  EXPECT_EQ(stepOf(130, -3), 0);  // -3 / 10 truncates toward zero
  EXPECT_EQ(stepOf(230, -3), -1);
  EXPECT_EQ(stepOf(139, 100), 10);
  EXPECT_EQ(stepOf(140, 100), 11);  // 100 / 9
  EXPECT_EQ(stepOf(236, 7), 7);
  // The vertical axis follows the same rule.
  clearField();
  addStar(300, 300, 188, 1, 2, 3);
  drawStars(nullptr, 0, -10);
  EXPECT_EQ(starlist->Y, 298);
  EXPECT_EQ(starlist->X, 300);
}

TEST_F(StarfieldTest, StarsLeavingTheFieldComeBackAtTheOppositeEdge) {
  struct Case {
    int X, Y, vx, vy;
    bool replaced;
    int newX, newY;  // -1: random along that edge
  };
  const Case cases[] = {
      {0, 300, -1, 0, true, 600, -1}, {600, 300, 1, 0, true, 0, -1}, {599, 300, 1, 0, false, 600, 300},
      {300, 0, 0, -1, true, -1, 600}, {300, 600, 0, 1, true, -1, 0}, {300, 599, 0, 1, false, 300, 600},
      {0, 0, 0, 0, false, 0, 0},
  };
  for (const Case& c : cases) {
    clearField();
    addStar(c.X, c.Y, 240, 7, 8, 9);  // depth 240 moves by the whole velocity
    BackgroundStar* original = starlist;
    drawStars(nullptr, c.vx, c.vy);
    ASSERT_EQ(starCount(), 1);
    const BackgroundStar* s = starlist;
    SCOPED_TRACE(testing::Message() << "star at " << c.X << "," << c.Y << " moving " << c.vx << "," << c.vy);
    if (!c.replaced) {
      EXPECT_EQ(s, original);
      EXPECT_EQ(s->r, 7);
    }
    if (c.newX >= 0)
      EXPECT_EQ(s->X, c.newX);
    else
      EXPECT_TRUE(s->X >= 0 && s->X < 600);
    if (c.newY >= 0)
      EXPECT_EQ(s->Y, c.newY);
    else
      EXPECT_TRUE(s->Y >= 0 && s->Y < 600);
    EXPECT_GE(s->Z, 128);
  }
}

TEST_F(StarfieldTest, ReplacementsAreNotMovedInTheFrameThatMadeThem) {
  addStar(10, 10, 240, 1, 1, 1);  // tail: stays inside
  addStar(0, 20, 240, 2, 2, 2);   // leaves at the low edge
  addStar(30, 30, 240, 3, 3, 3);  // head
  drawStars(nullptr, -1, 0);
  ASSERT_EQ(starCount(), 3);
  expectWellLinked();
  // The newcomer sits at the head, exactly on the far edge, unmoved.
  EXPECT_EQ(starlist->X, 600);
  EXPECT_EQ(starlist->next->X, 29);
  EXPECT_EQ(starlist->next->next->X, 9);
}

TEST_F(StarfieldTest, StillStarsAreSinglePixelsAndMovingOnesStreaks) {
  OwnedSurface pane = blackPane();
  addStar(100, 100, 130, 200, 100, 50);
  addStar(600, 100, 130, 1, 1, 1);  // on the field's edge, off the pane: clipped, not written
  drawStars(pane.get(), 0, 0);
  EXPECT_EQ(pixelRGB(pane.get(), 100, 100), 0xC86432u);
  EXPECT_EQ(pixelRGB(pane.get(), 101, 100), 0u);
  EXPECT_EQ(starCount(), 2);

  clearField();
  OwnedSurface streak = blackPane();
  addStar(200, 200, 250, 255, 255, 255);  // moves the whole velocity: 10 pixels
  drawStars(streak.get(), 10, 0);
  EXPECT_EQ(starlist->X, 210);
  // Faint where it was, full where it is.
  const Uint32 tail = pixelRGB(streak.get(), 200, 200) & 0xFF;
  EXPECT_GT(tail, 30u);
  EXPECT_LT(tail, 70u);
  EXPECT_EQ(pixelRGB(streak.get(), 210, 200), 0xFFFFFFu);
  EXPECT_EQ(pixelRGB(streak.get(), 211, 200), 0u);
}

TEST_F(StarfieldTest, EmptyFieldDrawsNothingAndSaysSo) {
  OwnedSurface pane = blackPane();
  drawStars(pane.get(), 5, 5);
  EXPECT_STREQ(lastLogLine(), "nothing in starlist from drawStars");
  EXPECT_EQ(pixelRGB(pane.get(), 0, 0), 0u);
}

TEST_F(StarfieldTest, TheFieldKeepsFiveHundredStarsWhateverTheShipDoes) {
  initBackgroundStars();
  OwnedSurface pane = blackPane();
  const int velocities[][2] = {{40, 0}, {-40, 13}, {0, -40}, {28, 28}, {-7, -33}, {0, 0}};
  for (int frame = 0; frame < 600; ++frame) {
    const auto& v = velocities[(frame / 50) % 6];
    drawStars(pane.get(), v[0], v[1]);
  }
  EXPECT_EQ(starCount(), 500);
  expectWellLinked();
  for (const BackgroundStar* s : starsInOrder()) {
    EXPECT_TRUE(s->X >= 0 && s->X <= 600 && s->Y >= 0 && s->Y <= 600) << s->X << "," << s->Y;
  }
}
