#include "platform/data_file.h"

#include <memory>

DataFile::DataFile(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "r"), &std::fclose);
  if (!file) return;
  open_ = true;
  char buffer[65536];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, file.get())) > 0;) contents_.append(buffer, n);
  text_ = contents_;
}

bool DataFile::nextLine(std::string& line) {
  line.clear();
  lastLineCut_ = false;
  if (position_ >= text_.size()) return false;
  ++lineNumber_;
  std::size_t end = text_.find('\n', position_);
  if (end == std::string_view::npos) end = text_.size();
  const std::size_t length = end - position_;
  lastLineCut_ = length > maxLineLength;
  line.assign(text_.substr(position_, lastLineCut_ ? maxLineLength : length));
  position_ = end + 1;
  // Files written on DOS keep their carriage return before the line feed.
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

bool DataFile::nextField(std::string& line) {
  while (nextLine(line)) {
    if (line.empty() || line[0] != '#') return true;
  }
  return false;
}
