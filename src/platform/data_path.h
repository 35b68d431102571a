#pragma once
#include <string>
#include <string_view>

// The data formats name files the DOS way (".\Stars\M.bmp"); the host wants
// "./Stars/M.bmp". Every loader goes through this one conversion.
std::string hostPath(std::string_view gamePath);
