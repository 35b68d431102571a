#include "platform/data_file.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/data_path.h"
#include "platform/text.h"
#include "support/test_support.h"

TEST(DataFile, CommentsDoNotCountEmptyLinesDo) {
  TempDir tmp;
  const std::string path = tmp.write("f.txt", "# header\nfirst\n\n#between\nthird\r\nlast without newline");
  DataFile file(path);
  ASSERT_TRUE(file.isOpen());
  std::string line;
  ASSERT_TRUE(file.nextField(line));
  EXPECT_EQ(line, "first");
  ASSERT_TRUE(file.nextField(line));
  EXPECT_EQ(line, "");
  ASSERT_TRUE(file.nextField(line));
  EXPECT_EQ(line, "third");
  EXPECT_EQ(file.lineNumber(), 5);
  ASSERT_TRUE(file.nextField(line));
  EXPECT_EQ(line, "last without newline");
  EXPECT_FALSE(file.nextField(line));
}

TEST(DataFile, LongLineIsCutAndStillOneField) {
  TempDir tmp;
  const std::string path = tmp.write("f.txt", std::string(1500, 'x') + "\nnext\n");
  DataFile file(path);
  std::string line;
  ASSERT_TRUE(file.nextField(line));
  EXPECT_EQ(line.size(), DataFile::maxLineLength);
  EXPECT_TRUE(file.lastLineCut());
  ASSERT_TRUE(file.nextField(line));
  EXPECT_EQ(line, "next");
  EXPECT_FALSE(file.lastLineCut());
}

TEST(DataFile, MissingFileReadsNothing) {
  DataFile file("/nonexistent/file.txt");
  std::string line;
  EXPECT_FALSE(file.isOpen());
  EXPECT_FALSE(file.nextField(line));
}

TEST(DataText, TokensSplitAtAnyRunOfSeparators) {
  const auto tokens = splitTokens(" 120, 40 \t130,,40\n");
  ASSERT_EQ(tokens.size(), 4u);
  EXPECT_EQ(tokens[0], "120");
  EXPECT_EQ(tokens[3], "40");
  EXPECT_TRUE(splitTokens(" ,\t").empty());
}

TEST(DataText, FieldsAreCutNotOverrun) {
  char field[5];
  EXPECT_FALSE(copyText(field, "abcd"));
  EXPECT_STREQ(field, "abcd");
  EXPECT_TRUE(copyText(field, "abcdef"));
  EXPECT_STREQ(field, "abcd");
}

TEST(DataText, NumbersReadLikeTheStandardFunctions) {
  EXPECT_EQ(parseInt("  -12abc"), -12);
  EXPECT_EQ(parseInt("none"), 0);
  EXPECT_DOUBLE_EQ(parseReal("5.5 CU"), 5.5);
}

TEST(DataPath, GamePathsBecomeHostPaths) {
  EXPECT_EQ(hostPath(".\\Stars\\M.bmp"), "./Stars/M.bmp");
  EXPECT_EQ(hostPath("NewGame.sav"), "NewGame.sav");
}
