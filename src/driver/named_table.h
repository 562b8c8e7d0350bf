// A table of the drawing whose entries are asked for by name.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace hexlume {

// Entries in the order of the drawing. Names may occur more than once; each entry counts and is kept. An
// index finds the first and the last of a name, so that a table of a hundred thousand costs a lookup little
// more than one of ten.
template <typename Entry>
class NamedTable {
 public:
  void Add(const Entry& entry) {
    const size_t place = entries.size();
    entries.push_back(entry);
    places.try_emplace(entry.name, Places{place, place}).first->second.last = place;
  }

  // The entries stay and are found by their places alone.
  void ForgetNames() { places.clear(); }

  // Null where no entry has the name, byte for byte.
  const Entry* FindFirst(std::string_view name) const {
    const auto found = places.find(name);
    return found == places.end() ? nullptr : &entries[found->second.first];
  }
  const Entry* FindLast(std::string_view name) const {
    const auto found = places.find(name);
    return found == places.end() ? nullptr : &entries[found->second.last];
  }

  size_t size() const { return entries.size(); }
  bool empty() const { return entries.empty(); }
  const Entry& operator[](size_t place) const { return entries[place]; }
  auto begin() const { return entries.begin(); }
  auto end() const { return entries.end(); }

 private:
  struct Places {
    size_t first, last;
  };

  std::vector<Entry> entries;
  std::map<std::string, Places, std::less<>> places;
};

}  // namespace hexlume
