#include "platform/data_file.h"

#include "platform/text.h"
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
  DataFile missing("/nonexistent/file.txt");
  std::string line;
  EXPECT_FALSE(missing.isOpen() || missing.nextField(line));
}

TEST(DataText, TokensFieldsNumbersAndPaths) {
  EXPECT_EQ(splitTokens(" 120, 40 \t130,,40\n"), (std::vector<std::string_view>{"120", "40", "130", "40"}));
  EXPECT_TRUE(splitTokens(" ,\t").empty());
  char field[5];
  EXPECT_FALSE(copyText(field, "abcd"));
  EXPECT_STREQ(field, "abcd");
  EXPECT_TRUE(copyText(field, "abcdef"));  // cut, never overrun
  EXPECT_STREQ(field, "abcd");
  EXPECT_EQ(parseInt("  -12abc") + parseInt("none"), -12);
  EXPECT_DOUBLE_EQ(parseReal("5.5 CU"), 5.5);
  EXPECT_EQ(hostPath(".\\Stars\\M.bmp"), "./Stars/M.bmp");
}
