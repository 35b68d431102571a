#include "platform/options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

bool parse(std::vector<const char*> args, Options& options, std::string& error) {
  args.insert(args.begin(), "prospector");
  return parseOptions(static_cast<int>(args.size()), args.data(), options, error);
}

}  // namespace

TEST(CommandLine, ReadsEveryOption) {
  Options options;
  std::string error;
  ASSERT_TRUE(parse({"--data", "d", "--frames", "90", "--seed", "4000000000", "--unthrottled", "--log-stdout",
                     "--script", "s.txt", "--help"},
                    options, error))
      << error;
  EXPECT_TRUE(options.dataDir == "d" && *options.frames == 90 && *options.seed == 4000000000u && options.unthrottled &&
              options.logToStdout && options.scriptPath == "s.txt" && options.help);
}

TEST(CommandLine, RejectsBadInputWithAReason) {
  const struct {
    std::vector<const char*> args;
    const char* mentions;
  } cases[] = {
      {{"--fly"}, "unknown option '--fly'"},
      {{"--frames"}, "--frames needs a value"},
      {{"--frames", "ten"}, "--frames takes a whole number"},
      {{"--frames", "-1"}, "--frames takes a whole number"},
      {{"--frames", "12x"}, "--frames takes a whole number"},
      {{"--seed", "4294967296"}, "--seed takes a whole number"},
      {{"--seed", ""}, "--seed takes a whole number"},
      {{"--data", ""}, "--data needs a directory"},
      {{"--script"}, "--script needs a value"},
      {{"--scale"}, "--scale needs a value"},
      {{"--scale", "0"}, "--scale takes a whole number from 1 to 4"},
      {{"--scale", "5"}, "--scale takes a whole number from 1 to 4"},
      {{"--scale", "2.5"}, "--scale takes a whole number from 1 to 4"},
      {{"--scale", "-2"}, "--scale takes a whole number from 1 to 4"},
  };
  for (const auto& c : cases) {
    Options options;
    std::string error;
    EXPECT_FALSE(parse(c.args, options, error)) << c.args[0];
    EXPECT_NE(error.find(c.mentions), std::string::npos) << error;
  }
}

TEST(CommandLine, ScaleAndCheck) {
  const struct {
    std::vector<const char*> args;
    int scale;
    bool check;
  } cases[] = {
      {{}, 1, false},
      {{"--scale", "1"}, 1, false},
      {{"--scale", "4", "--check"}, 4, true},
      {{"--check", "--data", "d"}, 1, true},
  };
  for (const auto& c : cases) {
    Options options;
    std::string error;
    ASSERT_TRUE(parse(c.args, options, error)) << error;
    EXPECT_EQ(options.scale, c.scale);
    EXPECT_EQ(options.check, c.check);
  }
  const std::string usage = usageText();
  for (const char* option : {"--scale N", "--check", "--data DIR"}) {
    EXPECT_NE(usage.find(option), std::string::npos) << option;
  }
}
