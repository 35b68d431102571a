#include "universe/starfield.h"

#include "support/test_support.h"

static void clearField() {
  while (starlist) removeStar(starlist);
}

// The field's positions head first, checking the links and bounds on the way.
static std::vector<int> fieldXs() {
  std::vector<int> xs;
  for (BackgroundStar* s = starlist; s; s = s->next) {
    EXPECT_TRUE(s->prev ? s->prev->next == s : s == starlist) << "broken back link";
    EXPECT_TRUE(s->X >= 0 && s->X <= 600 && s->Y >= 0 && s->Y <= 600 && s->Z >= 128 && s->Z <= 255);
    xs.push_back(s->X);
  }
  return xs;
}

class StarfieldTest : public GameTest {
 protected:
  void SetUp() override { GameTest::SetUp(), clearField(); }
  void TearDown() override { clearField(); }
};

TEST_F(StarfieldTest, StarsAreDrawnInTheirColourAndAnEmptyFieldIsLogged) {
  addStar(1, 100, 130, 10, 20, 30);
  SurfacePtr pane = blankSurface(500, 500);
  drawStars(pane.get(), 0, 0);
  EXPECT_EQ(pixelRGB(pane.get(), 1, 100), 0x0A141Eu);
  clearField();
  LogWatch log;
  drawStars(pane.get(), 5, 5);
  EXPECT_TRUE(log.saw("nothing in starlist from drawStars"));
}

// The step is the velocity over 10 - (depth - 128) / 12, truncated; depth 255 doubles it. A star
// leaving the field comes back at the opposite edge, anywhere along it (-1).
TEST_F(StarfieldTest, NearerStarsStepFurtherAndLeaversComeBackOpposite) {
  const int cases[][7] = {
      {300, 300, 130, 10, -10, 301, 299}, {300, 300, 200, 10, -10, 302, 298}, {300, 300, 250, 10, -10, 310, 290},
      {300, 300, 255, 10, -10, 320, 280}, {300, 300, 130, -3, 3, 300, 300},   {300, 300, 230, -3, 3, 299, 301},
      {300, 300, 139, 100, 0, 310, 300},  {300, 300, 140, 100, 0, 311, 300},  {300, 300, 236, 7, 0, 307, 300},
      {0, 300, 240, -1, 0, 600, -1},      {600, 300, 240, 1, 0, 0, -1},       {599, 300, 240, 1, 0, 600, 300},
      {300, 0, 240, 0, -1, -1, 600},      {300, 600, 240, 0, 1, -1, 0},       {300, 599, 240, 0, 1, 300, 600},
      {300, 1, 240, 0, -1, 300, 0},       {1, 300, 240, -1, 0, 0, 300}};
  for (auto [X, Y, Z, vx, vy, newX, newY] : cases) {
    clearField();
    addStar(X, Y, Z, 7, 8, 9);
    drawStars(nullptr, vx, vy);
    ASSERT_EQ(fieldXs().size(), 1u);
    EXPECT_TRUE((newX < 0 || starlist->X == newX) && (newY < 0 || starlist->Y == newY))
        << X << "," << Y << " depth " << Z << " to " << starlist->X << "," << starlist->Y;
  }
  clearField();  // a newcomer goes to the head, unmoved in the frame that made it
  for (int x : {10, 0, 30}) addStar(x, x, 240, 1, 1, 1);
  drawStars(nullptr, -1, 0);
  EXPECT_EQ(fieldXs(), (std::vector<int>{600, 29, 9}));
}
