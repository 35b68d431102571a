#pragma once
#include <cstdarg>
#include <string>
#include <vector>

// A fault that a loader found in a data file and worked around. `line` counts
// every line of the file from 1; 0 means the file as a whole (missing,
// unreadable, ending too early).
struct DataProblem {
  std::string file;
  int line = 0;
  std::string what;
};

// How a data file is named in messages: its path inside the data directory,
// with the host's slashes and without a leading "./" (".\Ships\A.txt" and
// "./Ships/A.txt" both give "Ships/A.txt").
std::string dataFileName(const std::string& path);

// Reports a fault in a data file: logs "FILE line N: what" on the debug log
// (for line 0 just `what`, which then names the file itself) and, while
// problems are being collected, keeps it.
void reportDataProblem(const std::string& file, int line, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
void reportDataProblemV(const std::string& file, int line, const char* format, std::va_list args);

// Starts (true) or stops keeping reported problems; starting clears what was kept.
void collectDataProblems(bool on);
// The problems kept since collecting started, in the order they were reported.
const std::vector<DataProblem>& collectedDataProblems();
