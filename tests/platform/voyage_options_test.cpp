#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/options.h"

TEST(CommandLine, ReadsTheVoyageOptions) {
  const char* args[] = {"prospector", "--new", "--voyage", "v.sav", "--autosave", "0"};
  Options options;
  std::string error;
  ASSERT_TRUE(parseOptions(6, args, options, error)) << error;
  EXPECT_TRUE(options.newVoyage && options.voyagePath == "v.sav" && options.autosaveMs == 0);
  EXPECT_EQ(Options{}.autosaveMs, 1000);
  const std::vector<std::vector<const char*>> bad = {
      {"prospector", "--voyage", ""}, {"prospector", "--autosave", "-1"}, {"prospector", "--autosave", "3600001"}};
  for (const auto& line : bad) {
    EXPECT_FALSE(parseOptions(3, line.data(), options, error));
    EXPECT_NE(error.find(line[1]), std::string::npos) << error;
  }
}
