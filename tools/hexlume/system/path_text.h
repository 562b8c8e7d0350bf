// The parts of a path as text.
#pragma once

#include <string>

namespace hexlume {

// Replaces the extension of a path, if it has one.
std::string WithExtension(const std::string& path, const std::string& extension);

// The extension with its point, in lower case; empty without one.
std::string ExtensionOf(const std::string& path);

std::string Joined(const std::string& folder, const std::string& name);

// The folder of a path: "." for a name alone.
std::string FolderOf(const std::string& path);

// ASCII letters in upper case.
std::string Upper(std::string text);

}  // namespace hexlume
