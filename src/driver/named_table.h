// A table of the drawing whose entries are looked up by name.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "driver/same_name.h"
#include "driver/work_budget.h"

namespace hexlume {

// Entries in the order of the drawing. A name may occur more than once; all entries are kept and counted. An
// index finds the first and the last entry of a name in logarithmic time.
template <typename Entry>
class NamedTable {
 public:
  void Add(const Entry& entry) {
    const size_t place = entries.size();
    entries.push_back(entry);
    places.try_emplace(entry.name, Places{place, place}).first->second.last = place;
  }

  // Keeps the entries, but no name is found any more.
  void ForgetNames() {
    places.clear();
    lastFound = nothing;
  }

  // Return null if no entry has the name, compared byte by byte.
  const Entry* FindFirst(const char* name) const {
    // Entities of one layer often follow each other.
    if (lastFound != nothing && IsSameName(name, entries[lastFound].name)) return &entries[lastFound];
    CountLookup();
    if (places.empty()) return nullptr;
    const auto found = places.find(std::string_view(name));
    if (found == places.end()) return nullptr;
    lastFound = found->second.first;
    return &entries[lastFound];
  }
  const Entry* FindLast(std::string_view name) const {
    CountLookup();
    const auto found = places.find(name);
    return found == places.end() ? nullptr : &entries[found->second.last];
  }

  // Changes if FindFirst had to look into the index, and has found another name there.
  size_t PlaceFoundLast() const { return lastFound; }

  size_t size() const { return entries.size(); }
  bool empty() const { return entries.empty(); }
  const Entry& operator[](size_t place) const { return entries[place]; }
  auto begin() const { return entries.begin(); }
  auto end() const { return entries.end(); }

 private:
  static constexpr size_t nothing = static_cast<size_t>(-1);

  static void CountLookup() {
    constexpr int64_t stepsOfLookup = 40;
    CountSteps(stepsOfLookup);
  }

  struct Places {
    size_t first, last;
  };

  std::vector<Entry> entries;
  std::map<std::string, Places, std::less<>> places;
  mutable size_t lastFound = nothing;  // by FindFirst
};

}  // namespace hexlume
