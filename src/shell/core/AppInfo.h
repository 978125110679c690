// The program's name and version as its captions show them.
#pragma once

namespace appinfo {
constexpr const char* kProgramTitle = "Ferrolith v1.1";
constexpr const char* kVersion = "1.1";
constexpr const char* kStartCaption = "Ferrolith v1.1  [INSTANTANEOUS CENTER OF ROTATION METHOD]";
}  // namespace appinfo
