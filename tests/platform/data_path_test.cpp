#include "platform/data_path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace fs = std::filesystem;

namespace {

// A scratch tree: <root>/prefix/bin/prospector beside <root>/prefix/share/prospector,
// and a <root>/here standing for the current directory.
struct Tree {
  fs::path root;
  Tree() {
    char pattern[] = "/tmp/prospector-path-XXXXXX";
    root = mkdtemp(pattern);
    fs::create_directories(root / "prefix" / "bin");
    fs::create_directories(root / "prefix" / "share" / "prospector");
    fs::create_directories(root / "here");
  }
  ~Tree() { fs::remove_all(root); }
  void giveData(const fs::path& dir) const { std::ofstream(dir / "NewGame.sav") << "Surveyor\n"; }
};

}  // namespace

TEST(DataDir, InstalledDataFirstThenTheCurrentDirectory) {
  const struct {
    bool installed, here;
    const char* expected;  // "prefix", "here" or "" for none
  } cases[] = {
      {true, true, "prefix"},
      {true, false, "prefix"},
      {false, true, "here"},
      {false, false, ""},
  };
  for (const auto& c : cases) {
    Tree tree;
    const fs::path installed = tree.root / "prefix" / "share" / "prospector";
    if (c.installed) tree.giveData(installed);
    if (c.here) tree.giveData(tree.root / "here");
    std::string looked;
    const std::string found =
        findDataDir((tree.root / "prefix" / "bin" / "prospector").string(), (tree.root / "here").string(), looked);
    const std::string expected = std::string(c.expected) == "prefix" ? installed.string()
                                 : std::string(c.expected) == "here" ? (tree.root / "here").string()
                                                                     : "";
    EXPECT_EQ(found, expected) << c.installed << c.here;
    if (expected.empty()) {
      EXPECT_EQ(looked, installed.string() + " and " + (tree.root / "here").string());
    }
  }
}

TEST(DataDir, UnknownProgramPathLooksOnlyHere) {
  std::string looked;
  EXPECT_EQ(findDataDir("", "/nonexistent-dir", looked), "");
  EXPECT_EQ(looked, "/nonexistent-dir");
  // A directory named NewGame.sav is no saved game.
  char pattern[] = "/tmp/prospector-path-XXXXXX";
  const fs::path dir = mkdtemp(pattern);
  fs::create_directory(dir / "NewGame.sav");
  EXPECT_FALSE(isDataDir(dir.string()));
  fs::remove_all(dir);
}
