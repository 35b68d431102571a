#include "platform/options.h"

#include "support/test_support.h"

namespace {

bool parse(std::vector<const char*> args, Options& options, std::string& error) {
  args.insert(args.begin(), "prospector");
  return parseOptions(static_cast<int>(args.size()), args.data(), options, error);
}

}  // namespace

// Every scripted run of the game reads the common options; here the ends of each range and the refusals.
TEST(CommandLine, TakesTheEndsOfEachRangeAndRejectsBadInputWithAReason) {
  Options options, lowest;
  std::string error;
  ASSERT_TRUE(parse({}, options, error)) << error;
  EXPECT_TRUE(options.scale == 1 && !options.check && !options.help);
  EXPECT_TRUE(parse({"--scale", "1", "--frames", "0", "--autosave", "0"}, lowest, error)) << error;
  EXPECT_TRUE(lowest.scale == 1 && *lowest.frames == 0 && lowest.autosaveMs == 0);
  ASSERT_TRUE(
      parse({"--scale", "4", "--seed", "4294967295", "--autosave", "3600000", "--check", "--help"}, options, error))
      << error;
  EXPECT_TRUE(options.scale == 4 && *options.seed == 4294967295u && options.autosaveMs == 3600000 && options.check &&
              options.help);
  const struct {
    std::vector<const char*> args;
    const char* mentions;
  } cases[] = {{{"--fly"}, "unknown option '--fly'"},
               {{"--frames"}, "--frames needs a value"},
               {{"--frames", "-1"}, "--frames takes a whole number"},
               {{"--frames", "12x"}, "--frames takes a whole number"},
               {{"--seed", "4294967296"}, "--seed takes a whole number"},
               {{"--seed", ""}, "--seed takes a whole number"},
               {{"--data", ""}, "--data needs a directory"},
               {{"--scale", "0"}, "--scale takes a whole number from 1 to 4"},
               {{"--scale", "5"}, "--scale takes a whole number from 1 to 4"},
               {{"--voyage", ""}, "--voyage needs a file"},
               {{"--autosave", "-1"}, "--autosave takes a whole number of milliseconds"},
               {{"--autosave", "3600001"}, "--autosave takes a whole number of milliseconds"}};
  for (const auto& c : cases) {
    EXPECT_FALSE(parse(c.args, options, error)) << c.args[0];
    EXPECT_NE(error.find(c.mentions), std::string::npos) << error;
  }
}
