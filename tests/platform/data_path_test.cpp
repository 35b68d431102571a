#include "support/test_support.h"

// <tmp>/prefix/bin/prospector finds <tmp>/prefix/share/prospector before <tmp>/here, the current directory.
TEST(DataDir, InstalledDataFirstThenTheCurrentDirectory) {
  const struct {
    bool installed, here;
    const char* expected;  // "prefix", "here" or "" for none
  } cases[] = {{true, true, "prefix"}, {true, false, "prefix"}, {false, true, "here"}, {false, false, ""}};
  for (const auto& c : cases) {
    TempDir tmp;
    const std::string installed = tmp.path("prefix/share/prospector"), here = tmp.path("here");
    std::filesystem::create_directories(installed);
    std::filesystem::create_directories(here);
    if (c.installed) tmp.write("prefix/share/prospector/NewGame.sav", "Surveyor\n");
    if (c.here) tmp.write("here/NewGame.sav", "Surveyor\n");
    std::string looked = "left from before";
    const std::string expected = c.expected == std::string("prefix") ? installed
                                 : c.expected == std::string("here") ? here
                                                                     : "";
    EXPECT_EQ(findDataDir(tmp.path("prefix/bin/prospector"), here, looked), expected) << c.installed << c.here;
    if (expected.empty()) {
      EXPECT_EQ(looked, installed + " and " + here);
    }
  }
  // Without the program's path only the current directory is looked at.
  std::string looked;
  EXPECT_EQ(findDataDir("", "/nonexistent-dir", looked), "");
  EXPECT_EQ(looked, "/nonexistent-dir");
  // A directory named NewGame.sav is no saved game.
  TempDir tmp;
  std::filesystem::create_directory(tmp.path("NewGame.sav"));
  EXPECT_FALSE(isDataDir(tmp.dir()));
}
