#include "base/data_problems.h"

#include "base/debug_log.h"
#include "platform/text.h"

namespace {

bool collecting = false;
std::vector<DataProblem> kept;

}  // namespace

std::string dataFileName(const std::string& path) {
  std::string name = path;
  for (char& c : name) {
    if (c == '\\') c = '/';
  }
  while (name.size() > 2 && name[0] == '.' && name[1] == '/') name.erase(0, 2);
  return name;
}

void reportDataProblemV(const std::string& file, int line, const char* format, std::va_list args) {
  const FormattedText what = formatText(format, args);
  const std::string name = dataFileName(file);
  // Log lines hold 99 characters: a file outside the data directory goes by its name alone.
  const std::size_t slash = name.find_last_of('/');
  const std::string shown = name[0] == '/' && slash != std::string::npos ? name.substr(slash + 1) : name;
  if (line > 0) {
    logMessagef("%s line %d: %s", shown.c_str(), line, what.text);
  } else {
    logMessage(what.text);  // names the file itself
  }
  if (collecting) kept.push_back({name, line, what.text});
}

void reportDataProblem(const std::string& file, int line, const char* format, ...) {
  va_list args;
  va_start(args, format);
  reportDataProblemV(file, line, format, args);
  va_end(args);
}

void collectDataProblems(bool on) {
  collecting = on;
  if (on) kept.clear();
}

const std::vector<DataProblem>& collectedDataProblems() { return kept; }
