#include "platform/text.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

std::vector<std::string_view> splitTokens(std::string_view line) {
  constexpr std::string_view separators = " ,\t\n";
  std::vector<std::string_view> tokens;
  tokens.reserve(8);  // the longest lines the formats expect, in one allocation
  std::size_t pos = 0;
  while (pos < line.size()) {
    pos = line.find_first_not_of(separators, pos);
    if (pos == std::string_view::npos) break;
    std::size_t end = line.find_first_of(separators, pos);
    if (end == std::string_view::npos) end = line.size();
    tokens.push_back(line.substr(pos, end - pos));
    pos = end;
  }
  return tokens;
}

int parseInt(std::string_view text) { return std::atoi(std::string(text).c_str()); }

int parseIntClamped(std::string_view text, bool& clamped) {
  // strtoll saturates at its own limits, which lie far past the int's.
  const long long value = std::strtoll(std::string(text).c_str(), nullptr, 10);
  clamped = value > INT_MAX || value < INT_MIN;
  return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

double parseReal(std::string_view text) { return std::atof(std::string(text).c_str()); }

FormattedText formatText(const char* format, std::va_list args) {
  FormattedText out;
  std::vsnprintf(out.text, sizeof out.text, format, args);
  return out;
}
