#pragma once
#include <cstdio>
#include <string>

// A line-oriented data file as every format of the game reads it: lines of at
// most 999 characters, the line feed cut off, lines starting with '#' are
// comments that do not count, every other line (an empty one too) is the next
// field. A longer line is cut at 999 characters and the rest of it dropped, so
// it still counts as one field.
class DataFile {
 public:
  static constexpr std::size_t maxLineLength = 999;

  explicit DataFile(const std::string& path);
  ~DataFile();
  DataFile(const DataFile&) = delete;
  DataFile& operator=(const DataFile&) = delete;

  bool isOpen() const { return file_ != nullptr; }
  // The next non-comment line; false at the end of the file.
  bool nextField(std::string& line);
  // The next line whatever it holds; false at the end of the file.
  bool nextLine(std::string& line);
  // Whether the line last returned was longer than maxLineLength and was cut.
  bool lastLineCut() const { return lastLineCut_; }
  // The number of the line last returned, counting every line from 1.
  int lineNumber() const { return lineNumber_; }

 private:
  std::FILE* file_ = nullptr;
  bool lastLineCut_ = false;
  int lineNumber_ = 0;
};
