#include "support/test_support.h"

// <tmp>/prefix/bin/prospector finds <tmp>/prefix/share/prospector before <tmp>/here, the current directory.
TEST(DataDir, InstalledDataFirstThenTheCurrentDirectory) {
  for (int has = 0; has < 4; ++has) {  // bit 0: the installed data, bit 1: the current directory's
    TempDir tmp;
    const std::string installed = tmp.path("prefix/share/prospector"), here = tmp.path("here");
    if (has & 1) tmp.write("prefix/share/prospector/NewGame.sav", "Surveyor\n");
    if (has & 2) tmp.write("here/NewGame.sav", "Surveyor\n");
    std::string looked = "left from before";
    EXPECT_EQ(findDataDir(tmp.path("prefix/bin/prospector"), here, looked), has & 1 ? installed : has ? here : "");
    if (!has) {
      EXPECT_EQ(looked, installed + " and " + here);
    }
  }
  std::string looked;  // without the program's path only the current directory is looked at
  EXPECT_EQ(findDataDir("", "/nonexistent-dir", looked) + looked, "/nonexistent-dir");
  TempDir tmp;  // a directory named NewGame.sav is no saved game
  std::filesystem::create_directory(tmp.path("NewGame.sav"));
  EXPECT_FALSE(isDataDir(tmp.dir()));
}
