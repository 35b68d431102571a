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

std::string_view DataFile::takeLine() {
  ++lineNumber_;
  std::size_t end = text_.find('\n', position_);
  if (end == std::string_view::npos) end = text_.size();
  const std::string_view whole = text_.substr(position_, end - position_);
  position_ = end + 1;
  return whole;
}

void DataFile::keep(std::string_view whole, std::string& line) {
  lastLineCut_ = whole.size() > maxLineLength;
  line.assign(whole.substr(0, maxLineLength));
  // Files written on DOS keep their carriage return before the line feed.
  if (!line.empty() && line.back() == '\r') line.pop_back();
}

bool DataFile::nextLine(std::string& line) {
  line.clear();
  lastLineCut_ = false;
  if (position_ >= text_.size()) return false;
  keep(takeLine(), line);
  return true;
}

bool DataFile::nextField(std::string& line) {
  line.clear();
  lastLineCut_ = false;
  while (position_ < text_.size()) {
    // Comments are passed over without being copied.
    const std::string_view whole = takeLine();
    if (whole.empty() || whole[0] != '#') {
      keep(whole, line);
      return true;
    }
  }
  return false;
}
