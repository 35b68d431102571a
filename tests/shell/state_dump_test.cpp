#include "shell/state_dump.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "base/game_state.h"
#include "ship/ship.h"
#include "support/test_support.h"

namespace {

// A strict JSON reader that only answers whether the text is one JSON value.
class JsonCheck {
 public:
  explicit JsonCheck(const std::string& text) : s_(text) {}
  bool valid() {
    skip();
    if (!value()) return false;
    skip();
    return i_ == s_.size();
  }

 private:
  void skip() {
    while (i_ < s_.size() && std::isspace(static_cast<unsigned char>(s_[i_]))) ++i_;
  }
  bool literal(const char* word) {
    const std::string w(word);
    if (s_.compare(i_, w.size(), w) != 0) return false;
    i_ += w.size();
    return true;
  }
  bool digits() {
    const std::size_t start = i_;
    while (i_ < s_.size() && std::isdigit(static_cast<unsigned char>(s_[i_]))) ++i_;
    return i_ > start;
  }
  bool number() {
    if (i_ < s_.size() && s_[i_] == '-') ++i_;
    if (!digits()) return false;
    if (i_ < s_.size() && s_[i_] == '.' && (++i_, !digits())) return false;
    if (i_ < s_.size() && (s_[i_] == 'e' || s_[i_] == 'E')) {
      ++i_;
      if (i_ < s_.size() && (s_[i_] == '+' || s_[i_] == '-')) ++i_;
      if (!digits()) return false;
    }
    return true;
  }
  bool string() {
    if (s_[i_++] != '"') return false;
    while (i_ < s_.size() && s_[i_] != '"') {
      if (static_cast<unsigned char>(s_[i_]) < 0x20) return false;
      i_ += s_[i_] == '\\' ? 2 : 1;
    }
    return i_++ < s_.size();
  }
  template <typename Item>
  bool sequence(char close, Item item) {
    ++i_;
    skip();
    if (i_ < s_.size() && s_[i_] == close) return ++i_, true;
    while (true) {
      skip();
      if (!item()) return false;
      skip();
      if (i_ >= s_.size()) return false;
      if (s_[i_] == close) return ++i_, true;
      if (s_[i_++] != ',') return false;
    }
  }
  bool value() {
    if (i_ >= s_.size()) return false;
    switch (s_[i_]) {
      case '{':
        return sequence('}', [&] {
          if (i_ >= s_.size() || !string()) return false;
          skip();
          if (i_ >= s_.size() || s_[i_++] != ':') return false;
          skip();
          return value();
        });
      case '[':
        return sequence(']', [&] { return value(); });
      case '"':
        return string();
      case 't':
        return literal("true");
      case 'f':
        return literal("false");
      case 'n':
        return literal("null");
      default:
        return number();
    }
  }
  const std::string& s_;
  std::size_t i_ = 0;
};

class StateDumpTest : public GameTest {
 protected:
  void TearDown() override {
    playerShip = Ship{};
    gameState = GameState{};
  }
};

}  // namespace

TEST(JsonCheckSelf, AcceptsJsonAndRejectsWhatIsNot) {
  for (const char* good : {"{}", "[1,-2.5,3e4,null,true]", R"({"a":{"b":["x\"y"]}})"})
    EXPECT_TRUE(JsonCheck(good).valid()) << good;
  for (const char* bad : {"{\"a\":nan}", "[inf]", "[-inf]", "{\"a\":1,}", "[1 2]", "{\"a\"}", "[1.]"})
    EXPECT_FALSE(JsonCheck(bad).valid()) << bad;
}

TEST_F(StateDumpTest, NonFiniteNumbersAreWrittenAsNullSoTheLineStaysJson) {
  const float nan = std::numeric_limits<float>::quiet_NaN(), inf = std::numeric_limits<float>::infinity();
  EXPECT_TRUE(JsonCheck(gameStateJson()).valid()) << gameStateJson();
  gameState.velX = std::nan("");
  gameState.velY = -std::numeric_limits<double>::infinity();
  playerShip.shipHoldFree = nan;
  playerShip.roverHoldFree = -inf;
  playerShip.shipHoldCapacity = inf;
  playerShip.shipHold[0] = nan;
  playerShip.shipHold[3] = inf;
  playerShip.roverHold[21] = -inf;
  playerShip.shipHold[1] = 4.5f;
  std::strcpy(playerShip.shipName, "nan inf");
  const std::string json = gameStateJson();
  EXPECT_TRUE(JsonCheck(json).valid()) << json;
  EXPECT_EQ(stateField(json, "velX"), "null");
  EXPECT_EQ(stateField(json, "velY"), "null");
  EXPECT_EQ(stateField(json, "shipHoldFree"), "null");
  EXPECT_EQ(stateField(json, "roverHoldFree"), "null");
  EXPECT_EQ(stateField(json, "shipHoldCapacity"), "null");
  EXPECT_EQ(stateField(json, "shipHold").substr(0, 21), "[null,4.50,0.00,null,");
  EXPECT_EQ(stateField(json, "roverHold").substr(stateField(json, "roverHold").size() - 6), ",null]");
  EXPECT_EQ(stateField(json, "shipName"), "\"nan inf\"");  // texts are left alone
}
