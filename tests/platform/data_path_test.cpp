#include "support/test_support.h"

// An installed game takes its own data before the current directory's; a directory named NewGame.sav is no data.
TEST(DataDir, InstalledDataComesFirst) {
  TempDir tmp;
  tmp.write("share/prospector/NewGame.sav", "Surveyor\n");
  tmp.write("here/NewGame.sav", "Surveyor\n");
  std::string looked;
  EXPECT_EQ(findDataDir(tmp.path("bin/prospector"), tmp.path("here"), looked), tmp.path("share/prospector"));
  std::filesystem::create_directory(tmp.path("NewGame.sav"));
  EXPECT_FALSE(isDataDir(tmp.dir()));
}
