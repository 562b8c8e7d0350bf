// The system's files and streams, as far as the tool needs them. On Windows texts and paths are UTF-8 in the whole tool;
// on Linux a path is bytes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace hexlume {

// The tool itself. arguments doesn't have the program's name. Returns the exit status.
int RunTool(const std::vector<std::string>& arguments);

// Turns off the conversion of \n on standard output, so that a listing is the same on every system.
void UsePlainLineEnds();

bool StandardOutputIsTerminal();
bool StandardErrorIsTerminal();

// Writes to standard error: to a console of Windows in its own encoding, to all else in UTF-8.
void PrintError(const std::string& text);

enum class FileKind { file, folder, other };  // other: a pipe or a device

struct FileStamp {
  FileKind kind = FileKind::file;
  int64_t size = 0;      // in bytes; of a file
  int64_t modified = 0;  // in the system's own units
};

// None if there is no such file.
std::optional<FileStamp> StampOf(const std::string& path);

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// As fopen(). Null, with errno set, if it can't be opened.
File OpenFile(const std::string& path, const char* mode);

// Moves to a place in bytes from the start, or from the end. False if that can't be done.
bool SeekFile(std::FILE* file, int64_t place, int origin);

// Standard input, without any conversion.
std::FILE* PlainStandardInput();

// Returns the index at which the file's name begins in a path.
size_t FileNameStart(const std::string& path);

bool IsAbsolutePath(const std::string& path);

// The path from the root, with neither "." nor "..", whether there is such a file or not. Links aren't followed.
std::string AbsolutePath(const std::string& path);

// Returns the same key for two paths of one file, whether it exists or not. The key is absolute and in upper
// case, because some file systems ignore case.
std::string PathKey(const std::string& path);

// Whether the system takes "a" and "A" for the same name.
bool NamesIgnoreCase();

struct FolderEntry {
  std::string name;
  FileKind kind;
};

// The entries of a folder, without "." and "..", in no order. None if it can't be read. A link to a folder is no
// folder here, so a walk ends.
std::optional<std::vector<FolderEntry>> EntriesOf(const std::string& folder);

// Makes a folder and those above it. False, with errno set, if that can't be done.
bool MakeFolders(const std::string& folder);

// The path as the nine exports take it. None if they can't open it.
std::optional<std::string> LibraryPath(const std::string& path);

int32_t ProcessorCount();

}  // namespace hexlume
