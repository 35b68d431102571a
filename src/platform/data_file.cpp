#include "platform/data_file.h"

DataFile::DataFile(const std::string& path) : file_(std::fopen(path.c_str(), "r")) {}

DataFile::~DataFile() {
  if (file_) std::fclose(file_);
}

bool DataFile::nextLine(std::string& line) {
  line.clear();
  lastLineCut_ = false;
  if (!file_) return false;
  int c = std::fgetc(file_);
  if (c == EOF) return false;
  ++lineNumber_;
  while (c != EOF && c != '\n') {
    if (line.size() < maxLineLength) {
      line.push_back(static_cast<char>(c));
    } else {
      lastLineCut_ = true;
    }
    c = std::fgetc(file_);
  }
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
