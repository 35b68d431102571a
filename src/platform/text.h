#pragma once
#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

// Copies text into a fixed, zero-terminated field, cutting what does not fit.
// Returns true when the text had to be cut.
template <std::size_t N>
bool copyText(char (&field)[N], std::string_view text) {
  static_assert(N > 0);
  const std::size_t n = text.size() < N - 1 ? text.size() : N - 1;
  std::memcpy(field, text.data(), n);
  field[n] = '\0';
  return text.size() > N - 1;
}

// The list separators of the data formats: any run of blank, comma, tab or
// line feed (what strtok with " ,\t\n" does, without touching the line).
std::vector<std::string_view> splitTokens(std::string_view line);

// printf into a buffer of 1024 bytes: what the log and message wrappers format with.
struct FormattedText {
  char text[1024];
};
FormattedText formatText(const char* format, std::va_list args);

// atoi and atof on a field, with the standard functions' rules.
int parseInt(std::string_view text);
// atoi's reading held inside the int range: a number past it reads as INT_MAX
// or INT_MIN instead of wrapping, and `clamped` tells the caller so.
int parseIntClamped(std::string_view text, bool& clamped);
double parseReal(std::string_view text);
