#include <string>

#include "platform/data_file.h"
#include "support/test_support.h"

// A text read from memory gives the fields, numbers and cuts the same bytes give from a file.
TEST(DataFile, TextInMemoryReadsLikeTheFile) {
  TempDir tmp;
  const std::string texts[] = {"a\r\n#c\n\nb", std::string(999, 'x') + "\r\n" + std::string(1000, 'y') + "\n",
                               std::string("nul\0byte\n\n", 10), "", "\n#only\n"};
  for (const std::string& text : texts) {
    DataFile file(tmp.write("f.txt", text)), memory(DataFile::Text{text});
    std::string a, b;
    bool more = true;
    while (more) {
      more = file.nextField(a);
      ASSERT_EQ(more, memory.nextField(b));
      EXPECT_EQ(a, b);
      EXPECT_EQ(file.lineNumber(), memory.lineNumber());
      EXPECT_EQ(file.lastLineCut(), memory.lastLineCut());
    }
  }
}
