#include "platform/data_file.h"

#include "platform/text.h"
#include "support/test_support.h"

TEST(DataFile, CommentsAreSkippedEmptyLinesCountAndLongLinesAreCut) {
  TempDir tmp;
  DataFile file(tmp.write("f.txt", "# header\nfirst\n\n#between\nthird\r\n" + std::string(1500, 'x') + "\nlast"));
  ASSERT_TRUE(file.isOpen());
  std::string line, fields;
  while (file.nextField(line)) {
    fields += (line.size() > 20 ? std::to_string(line.size()) : line) + (file.lastLineCut() ? " cut:" : ":") +
              std::to_string(file.lineNumber()) + "|";
  }
  EXPECT_EQ(fields, "first:2|:3|third:5|999 cut:6|last:7|");
  DataFile missing("/nonexistent/file.txt");
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
  EXPECT_EQ(hostPath("NewGame.sav"), "NewGame.sav");
}
