#include "platform/options.h"

#include "support/test_support.h"

static bool parse(std::vector<const char*> args, Options& options, std::string& error) {
  args.insert(args.begin(), "prospector");
  return parseOptions(static_cast<int>(args.size()), args.data(), options, error);
}

// The ends of each range, and refusals that name the option. Unknown options and a missing value are met at startup.
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
  const std::vector<const char*> refused[] = {
      {"--frames", "-1"},   {"--frames", "12x"},       {"--seed", "4294967296"}, {"--seed", ""},  {"--scale", "0"},
      {"--autosave", "-1"}, {"--autosave", "3600001"}, {"--data", ""},           {"--voyage", ""}};
  for (const auto& args : refused) {
    EXPECT_FALSE(parse(args, options, error)) << args[0];
    EXPECT_EQ(error.rfind(std::string(args[0]) + " ", 0), 0u) << error;  // the message starts with the option
  }
}
