// A library of the system that is loaded when it is first needed, as each one that is linked makes every start longer.
#pragma once

namespace hexlume {

class LoadedLibrary {
 public:
  // Loads it, by the name that it would be linked with. Throws std::bad_alloc if it is installed, but can't be loaded. It stays
  // loaded for good: some libraries never free some of their memory, which each further load would leak. No other library
  // finds its functions by their names.
  explicit LoadedLibrary(const char* name);

  // False if it, or a library that it needs, isn't there.
  bool IsInstalled() const { return library != nullptr; }

  // Sets a pointer to a function of the library. Throws std::bad_alloc if there is none of that name.
  template <typename Function>
  void Find(const char* name, Function*& function) const {
    function = reinterpret_cast<Function*>(Address(name));
  }

 private:
  void* Address(const char* name) const;

  void* library;
};

}  // namespace hexlume
