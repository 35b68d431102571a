#include "platform/data_file.h"

#include "support/test_support.h"

using namespace std::literals;

TEST(DataFile, CommentsAreSkippedEmptyLinesCountAndLongLinesAreCutInAFileAsInMemory) {
  TempDir tmp;
  const std::string text =
      "# header\nfirst\n\n#between\nthird\r\n" + std::string(999, 'x') + "\n" + std::string(1500, 'y') + "\nla\0st"s;
  DataFile file(tmp.write("f.txt", text)), memory(DataFile::Text{text});
  for (DataFile* f : {&file, &memory}) {
    ASSERT_TRUE(f->isOpen());
    std::string line, fields;
    while (f->nextField(line)) {
      fields += (line.size() > 20 ? std::to_string(line.size()) : line) + (f->lastLineCut() ? " cut:" : ":") +
                std::to_string(f->lineNumber()) + "|";
    }
    EXPECT_EQ(fields, "first:2|:3|third:5|999:6|999 cut:7|la\0st:8|"s);
  }
}
