#pragma once
#include <cstdio>
#include <string>
#include <string_view>

// A line-oriented data file as every format of the game reads it: lines of at
// most 999 characters, the line feed cut off, lines starting with '#' are
// comments that do not count, every other line (an empty one too) is the next
// field. A longer line is cut at 999 characters and the rest of it dropped, so
// it still counts as one field.
class DataFile {
 public:
  static constexpr std::size_t maxLineLength = 999;

  // Text already in memory, read exactly as the same bytes in a file would be.
  struct Text {
    std::string_view bytes;
  };

  // Reads the whole file at once; isOpen() tells whether it could be opened.
  explicit DataFile(const std::string& path);
  // Reads `text.bytes`, which must outlive the DataFile.
  explicit DataFile(Text text) : open_(true), text_(text.bytes) {}
  DataFile(const DataFile&) = delete;
  DataFile& operator=(const DataFile&) = delete;

  bool isOpen() const { return open_; }
  // The next non-comment line; false at the end of the file.
  bool nextField(std::string& line);
  // The next line whatever it holds; false at the end of the file.
  bool nextLine(std::string& line);
  // Whether the line last returned was longer than maxLineLength and was cut.
  bool lastLineCut() const { return lastLineCut_; }
  // The number of the line last returned, counting every line from 1.
  int lineNumber() const { return lineNumber_; }

 private:
  std::string_view takeLine();  // the next whole line, numbered, without its line feed
  void keep(std::string_view whole, std::string& line);

  bool open_ = false;
  std::string contents_;  // a file's bytes; text_ views them
  std::string_view text_;
  std::size_t position_ = 0;
  bool lastLineCut_ = false;
  int lineNumber_ = 0;
};
