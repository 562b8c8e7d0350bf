// The C locale of the process, as a host may have set it.
#pragma once

#include <clocale>
#include <string>

namespace hexlume {

// Names of all systems: one that a system doesn't know leaves the locale as it is.
constexpr const char* hostLocales[] = {"C", "", "ja_JP.UTF-8", "C.UTF-8", "Japanese", "German", "en-US"};

// Selects a locale for its lifetime.
class HostLocale {
 public:
  explicit HostLocale(const char* name) : previous(std::setlocale(LC_ALL, nullptr)) {
    std::setlocale(LC_ALL, name);
  }
  HostLocale(const HostLocale&) = delete;
  HostLocale& operator=(const HostLocale&) = delete;
  ~HostLocale() { std::setlocale(LC_ALL, previous.c_str()); }

 private:
  std::string previous;
};

}  // namespace hexlume
