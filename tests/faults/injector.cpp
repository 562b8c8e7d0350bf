#include "faults/injector.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <signal.h>
#include <spawn.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H

// The allocator's own names for its functions, which can be called before the loader is ready.
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* memory);
}

namespace {

const char* const kindNames[FAULT_KINDS] = {"memory", "write", "read", "open",   "close",
                                            "rename", "sync",  "font", "process"};

std::atomic<int32_t> armedKind{FAULT_NONE};
std::atomic<int64_t> failing{0}, calls{0}, blocks{0};
bool kills = false;
const char* countFile = nullptr;

// Counts a call. True if it is the one that fails.
bool Fails(int32_t kind) {
  if (armedKind.load(std::memory_order_relaxed) != kind) return false;
  if (++calls != failing) return false;
  if (kills) kill(getpid(), SIGKILL);
  return true;
}

template <typename Function>
Function* Real(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void* Counted(void* memory) {
  if (memory) ++blocks;
  return memory;
}

void* Refused() {
  errno = ENOMEM;
  return nullptr;
}

template <typename Result>
Result Failed(int error, Result result) {
  errno = error;
  return result;
}

// Writes the number of calls when the process ends as programs do.
struct Orders {
  Orders() {
    const char* const order = getenv("HEXLUME_FAULT");
    countFile = getenv("HEXLUME_FAULT_COUNT");
    if (!order) return;
    const size_t nameLength = strcspn(order, ":");
    for (int32_t kind = 0; kind < FAULT_KINDS; ++kind)
      if (strlen(kindNames[kind]) == nameLength && strncmp(order, kindNames[kind], nameLength) == 0)
        armed = kind;
    const char* const number = order + nameLength;
    kills = strstr(number, ":kill") != nullptr;
    if (armed != FAULT_NONE)
      hexlume_fault_arm(armed, strtoll(*number == ':' ? number + 1 : number, nullptr, 10));
  }
  ~Orders() {
    if (!countFile || armed == FAULT_NONE) return;
    char line[32];
    const int length = snprintf(line, sizeof line, "%lld\n", static_cast<long long>(hexlume_fault_disarm()));
    const int file = open(countFile, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (file < 0) return;
    if (write(file, line, static_cast<size_t>(length)) != length) abort();
    close(file);
  }
  int32_t armed = FAULT_NONE;
} orders;

}  // namespace

extern "C" {

void hexlume_fault_arm(int32_t kind, int64_t call) {
  calls = 0;
  failing = call;
  armedKind = kind;
}

int64_t hexlume_fault_disarm(void) {
  armedKind = FAULT_NONE;
  return calls;
}

int64_t hexlume_fault_blocks(void) {
  return blocks;
}

// Memory

void* malloc(size_t size) noexcept {
  return Fails(FAULT_MEMORY) ? Refused() : Counted(__libc_malloc(size));
}
void* calloc(size_t count, size_t size) noexcept {
  return Fails(FAULT_MEMORY) ? Refused() : Counted(__libc_calloc(count, size));
}
void* realloc(void* memory, size_t size) noexcept {
  if (Fails(FAULT_MEMORY)) return Refused();
  void* const moved = __libc_realloc(memory, size);
  if (!memory) Counted(moved);
  if (memory && size == 0) --blocks;
  return moved;
}
void* reallocarray(void* memory, size_t count, size_t size) noexcept {
  size_t whole;
  return __builtin_mul_overflow(count, size, &whole) ? Refused() : realloc(memory, whole);
}
void* memalign(size_t alignment, size_t size) noexcept {
  return Fails(FAULT_MEMORY) ? Refused() : Counted(__libc_memalign(alignment, size));
}
void* aligned_alloc(size_t alignment, size_t size) noexcept {
  return memalign(alignment, size);
}
int posix_memalign(void** memory, size_t alignment, size_t size) noexcept {
  void* const got = memalign(alignment, size);
  if (!got) return ENOMEM;
  *memory = got;
  return 0;
}
void free(void* memory) noexcept {
  if (memory) --blocks;
  __libc_free(memory);
}

// Files. REAL calls the function whose place this one takes.
#define REAL(name)                                \
  (*[] {                                          \
    static auto* const real = Real(&name, #name); \
    return real;                                  \
  }())

ssize_t write(int file, const void* bytes, size_t size) {
  return Fails(FAULT_WRITE) ? Failed<ssize_t>(ENOSPC, -1) : REAL(write)(file, bytes, size);
}
ssize_t writev(int file, const iovec* parts, int count) {
  return Fails(FAULT_WRITE) ? Failed<ssize_t>(ENOSPC, -1) : REAL(writev)(file, parts, count);
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t place) {
  return Fails(FAULT_WRITE) ? Failed<ssize_t>(ENOSPC, -1) : REAL(pwrite)(file, bytes, size, place);
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t place) {
  return Fails(FAULT_WRITE) ? Failed<ssize_t>(ENOSPC, -1) : REAL(pwrite64)(file, bytes, size, place);
}
size_t fwrite(const void* bytes, size_t size, size_t count, FILE* file) {
  return Fails(FAULT_WRITE) ? Failed<size_t>(ENOSPC, 0) : REAL(fwrite)(bytes, size, count, file);
}
int fflush(FILE* file) {
  return Fails(FAULT_WRITE) ? Failed(ENOSPC, EOF) : REAL(fflush)(file);
}
int fputs(const char* text, FILE* file) {
  return Fails(FAULT_WRITE) ? Failed(ENOSPC, EOF) : REAL(fputs)(text, file);
}
int fputc(int letter, FILE* file) {
  return Fails(FAULT_WRITE) ? Failed(ENOSPC, EOF) : REAL(fputc)(letter, file);
}

ssize_t read(int file, void* bytes, size_t size) {
  return Fails(FAULT_READ) ? Failed<ssize_t>(EIO, -1) : REAL(read)(file, bytes, size);
}
ssize_t pread(int file, void* bytes, size_t size, off_t place) {
  return Fails(FAULT_READ) ? Failed<ssize_t>(EIO, -1) : REAL(pread)(file, bytes, size, place);
}
ssize_t pread64(int file, void* bytes, size_t size, off64_t place) {
  return Fails(FAULT_READ) ? Failed<ssize_t>(EIO, -1) : REAL(pread64)(file, bytes, size, place);
}
// A stream that has failed says so afterwards, which only the C library can note. So its file is taken from it for
// the one call.
size_t fread(void* bytes, size_t size, size_t count, FILE* file) {
  if (!Fails(FAULT_READ)) return REAL(fread)(bytes, size, count, file);
  const int number = fileno(file);
  const int kept = dup(number);
  const int writeOnly = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(writeOnly, number);
  const size_t got = REAL(fread)(bytes, size, count, file);
  dup2(kept, number);
  REAL(close)(kept);
  REAL(close)(writeOnly);
  return got;
}

static mode_t ModeOf(int flags, va_list arguments) {
  return flags & (O_CREAT | O_TMPFILE) ? va_arg(arguments, mode_t) : 0;
}
int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Fails(FAULT_OPEN) ? Failed(EMFILE, -1) : REAL(open)(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Fails(FAULT_OPEN) ? Failed(EMFILE, -1) : REAL(open64)(path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Fails(FAULT_OPEN) ? Failed(EMFILE, -1) : REAL(openat)(folder, path, flags, mode);
}
FILE* fopen(const char* path, const char* mode) {
  return Fails(FAULT_OPEN) ? Failed<FILE*>(EMFILE, nullptr) : REAL(fopen)(path, mode);
}
FILE* fopen64(const char* path, const char* mode) {
  return Fails(FAULT_OPEN) ? Failed<FILE*>(EMFILE, nullptr) : REAL(fopen64)(path, mode);
}
FILE* fdopen(int file, const char* mode) noexcept {
  return Fails(FAULT_OPEN) ? Failed<FILE*>(EMFILE, nullptr) : REAL(fdopen)(file, mode);
}
DIR* opendir(const char* path) {
  return Fails(FAULT_OPEN) ? Failed<DIR*>(EMFILE, nullptr) : REAL(opendir)(path);
}

// What fails to close is closed all the same.
int close(int file) {
  const int result = REAL(close)(file);
  return Fails(FAULT_CLOSE) ? Failed(EIO, -1) : result;
}
int fclose(FILE* file) {
  const int result = REAL(fclose)(file);
  return Fails(FAULT_CLOSE) ? Failed(EIO, EOF) : result;
}
int rename(const char* from, const char* to) noexcept {
  return Fails(FAULT_RENAME) ? Failed(EACCES, -1) : REAL(rename)(from, to);
}
int fsync(int file) {
  return Fails(FAULT_SYNC) ? Failed(EIO, -1) : REAL(fsync)(file);
}
int fdatasync(int file) {
  return Fails(FAULT_SYNC) ? Failed(EIO, -1) : REAL(fdatasync)(file);
}
int ftruncate(int file, off_t size) noexcept {
  return Fails(FAULT_SYNC) ? Failed(EIO, -1) : REAL(ftruncate)(file, size);
}
int ftruncate64(int file, off64_t size) noexcept {
  return Fails(FAULT_SYNC) ? Failed(EIO, -1) : REAL(ftruncate64)(file, size);
}

// Processes

int pipe2(int ends[2], int flags) noexcept {
  return Fails(FAULT_PROCESS) ? Failed(EMFILE, -1) : REAL(pipe2)(ends, flags);
}
int posix_spawn(pid_t* process, const char* path, const posix_spawn_file_actions_t* files,
                const posix_spawnattr_t* attributes, char* const arguments[], char* const variables[]) {
  return Fails(FAULT_PROCESS) ? EAGAIN
                              : REAL(posix_spawn)(process, path, files, attributes, arguments, variables);
}
int posix_spawnp(pid_t* process, const char* path, const posix_spawn_file_actions_t* files,
                 const posix_spawnattr_t* attributes, char* const arguments[], char* const variables[]) {
  return Fails(FAULT_PROCESS) ? EAGAIN
                              : REAL(posix_spawnp)(process, path, files, attributes, arguments, variables);
}

// Fonts

FcConfig* FcInitLoadConfigAndFonts(void) {
  return Fails(FAULT_FONT) ? nullptr : REAL(FcInitLoadConfigAndFonts)();
}
FcPattern* FcPatternCreate(void) {
  return Fails(FAULT_FONT) ? nullptr : REAL(FcPatternCreate)();
}
FcFontSet* FcFontList(FcConfig* config, FcPattern* pattern, FcObjectSet* objects) {
  return Fails(FAULT_FONT) ? nullptr : REAL(FcFontList)(config, pattern, objects);
}
FcPattern* FcFontMatch(FcConfig* config, FcPattern* pattern, FcResult* result) {
  return Fails(FAULT_FONT) ? nullptr : REAL(FcFontMatch)(config, pattern, result);
}
FT_Error FT_Init_FreeType(FT_Library* library) {
  return Fails(FAULT_FONT) ? FT_Err_Out_Of_Memory : REAL(FT_Init_FreeType)(library);
}
FT_Error FT_New_Face(FT_Library library, const char* path, FT_Long index, FT_Face* face) {
  return Fails(FAULT_FONT) ? FT_Err_Out_Of_Memory : REAL(FT_New_Face)(library, path, index, face);
}
FT_Error FT_Load_Sfnt_Table(FT_Face face, FT_ULong tag, FT_Long offset, FT_Byte* bytes, FT_ULong* size) {
  return Fails(FAULT_FONT) ? FT_Err_Out_Of_Memory : REAL(FT_Load_Sfnt_Table)(face, tag, offset, bytes, size);
}
FT_Error FT_Get_Advance(FT_Face face, FT_UInt glyph, FT_Int32 flags, FT_Fixed* advance) {
  return Fails(FAULT_FONT) ? FT_Err_Out_Of_Memory : REAL(FT_Get_Advance)(face, glyph, flags, advance);
}
FT_Error FT_Load_Glyph(FT_Face face, FT_UInt glyph, FT_Int32 flags) {
  return Fails(FAULT_FONT) ? FT_Err_Out_Of_Memory : REAL(FT_Load_Glyph)(face, glyph, flags);
}
FT_Error FT_Set_Pixel_Sizes(FT_Face face, FT_UInt width, FT_UInt height) {
  return Fails(FAULT_FONT) ? FT_Err_Out_Of_Memory : REAL(FT_Set_Pixel_Sizes)(face, width, height);
}

}  // extern "C"
