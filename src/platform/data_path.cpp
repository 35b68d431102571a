#include "platform/data_path.h"

std::string hostPath(std::string_view gamePath) {
  std::string path(gamePath);
  for (char& c : path) {
    if (c == '\\') c = '/';
  }
  return path;
}
