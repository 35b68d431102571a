#include "platform/data_path.h"

#include <filesystem>
#include <system_error>

std::string hostPath(std::string_view gamePath) {
  std::string path(gamePath);
  for (char& c : path) {
    if (c == '\\') c = '/';
  }
  return path;
}

bool isDataDir(const std::string& dir) {
  std::error_code ec;
  return !dir.empty() && std::filesystem::is_regular_file(std::filesystem::path(dir) / "NewGame.sav", ec);
}

std::string findDataDir(const std::string& executable, const std::string& currentDir, std::string& looked) {
  namespace fs = std::filesystem;
  std::string candidates[2];
  if (!executable.empty()) {
    // bin/prospector and games/prospector alike sit one level below the prefix.
    const fs::path installed = fs::path(executable).parent_path().parent_path() / "share" / "prospector";
    candidates[0] = installed.lexically_normal().string();
  }
  candidates[1] = currentDir;
  looked.clear();
  for (const std::string& dir : candidates) {
    if (dir.empty()) continue;
    if (isDataDir(dir)) return dir;
    looked += (looked.empty() ? "" : " and ") + dir;
  }
  return "";
}

std::string executablePath() {
  std::error_code ec;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::string() : self.string();
}
