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
  bool valid() { return value() && (peek(), i_ == s_.size()); }

 private:
  // The next character past white space, or 0 at the end.
  char peek() {
    while (i_ < s_.size() && std::isspace(static_cast<unsigned char>(s_[i_]))) ++i_;
    return i_ < s_.size() ? s_[i_] : 0;
  }
  bool eat(char c) { return peek() == c && ++i_; }
  bool at(char c) const { return i_ < s_.size() && s_[i_] == c; }
  bool digits() {
    const std::size_t start = i_;
    while (i_ < s_.size() && std::isdigit(static_cast<unsigned char>(s_[i_]))) ++i_;
    return i_ > start;
  }
  bool number() {
    i_ += at('-');
    if (!digits() || (at('.') && (++i_, !digits()))) return false;
    if (!at('e') && !at('E')) return true;
    ++i_;
    i_ += at('+') || at('-');
    return digits();
  }
  bool string() {
    if (!eat('"')) return false;
    for (; i_ < s_.size() && s_[i_] != '"'; i_ += s_[i_] == '\\' ? 2 : 1) {
      if (static_cast<unsigned char>(s_[i_]) < 0x20) return false;
    }
    return i_++ < s_.size();
  }
  bool word(const std::string& w) { return s_.compare(i_, w.size(), w) == 0 && (i_ += w.size()); }
  template <typename Item>
  bool sequence(char close, Item item) {
    ++i_;
    if (eat(close)) return true;
    do {
      if (!item()) return false;
    } while (eat(','));
    return eat(close);
  }
  bool value() {
    switch (peek()) {
      case '{':
        return sequence('}', [&] { return string() && eat(':') && value(); });
      case '[':
        return sequence(']', [&] { return value(); });
      case '"':
        return string();
      case 't':
        return word("true");
      case 'f':
        return word("false");
      case 'n':
        return word("null");
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
  for (const char* bad :
       {"{\"a\":nan}", "[inf]", "[-inf]", "{\"a\":1,}", "[1 2]", "{\"a\"}", "[1.]", "[1e]", "\"a", ""})
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
  for (const char* field : {"velX", "velY", "shipHoldFree", "roverHoldFree", "shipHoldCapacity"})
    EXPECT_EQ(stateField(json, field), "null") << field;
  EXPECT_EQ(stateField(json, "shipHold").substr(0, 21), "[null,4.50,0.00,null,");
  EXPECT_EQ(stateField(json, "roverHold").substr(stateField(json, "roverHold").size() - 6), ",null]");
  EXPECT_EQ(stateField(json, "shipName"), "\"nan inf\"");  // texts are left alone
}
