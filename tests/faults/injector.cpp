#include "faults/injector.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <link.h>
#include <signal.h>
#include <spawn.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/uio.h>
#include <unistd.h>
#include <unwind.h>

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

const char* const kindNames[FAULT_KINDS] = {"memory", "write", "read", "open",    "close",
                                            "rename", "sync",  "font", "process", "module"};

std::atomic<int32_t> armedKind{FAULT_NONE};
std::atomic<int64_t> failing{0}, calls{0}, blocks{0};
bool kills = false, crashes = false;

// The records of the calls, in a file that is mapped: a worker can be killed at any moment.
constexpr int64_t mostRecords = 1 << 20;
FaultCall* records = nullptr;

struct Walk {
  FaultCall call = {1469598103934665603u, {}};
  int callers = 0;
};

// Part of the name of a library whose callers are looked for instead.
bool IsSystem(const char* name) {
  static const char* const parts[] = {"libhexlume_faults", "libc.so", "libstdc++", "libgcc_s", "ld-linux"};
  for (const char* const part : parts)
    if (strstr(name, part)) return true;
  return false;
}

_Unwind_Reason_Code TakeCaller(_Unwind_Context* context, void* argument) {
  constexpr int mostCallers = 4;
  Walk& walk = *static_cast<Walk*>(argument);
  const uintptr_t address = _Unwind_GetIP(context);
  dl_find_object found;
  if (address == 0 || _dl_find_object(reinterpret_cast<void*>(address), &found) != 0)
    return _URC_END_OF_STACK;
  const char* const path = found.dlfo_link_map->l_name;
  if (IsSystem(path)) return _URC_NO_REASON;
  const char* const slash = strrchr(path, '/');
  if (walk.callers == 0) strncpy(walk.call.owner, slash ? slash + 1 : "program", sizeof walk.call.owner - 1);
  walk.call.place = (walk.call.place ^ (address - found.dlfo_link_map->l_addr)) * 1099511628211u | 1;
  return ++walk.callers == mostCallers ? _URC_END_OF_STACK : _URC_NO_REASON;
}

void Record(int64_t call) {
  static thread_local bool isWalking = false;
  if (isWalking || call > mostRecords) return;
  isWalking = true;
  Walk walk;
  _Unwind_Backtrace(TakeCaller, &walk);
  records[call - 1] = walk.call;
  isWalking = false;
}

// Counts a call. True if it is the one that fails.
bool Fails(int32_t kind) {
  if (armedKind.load(std::memory_order_relaxed) != kind) return false;
  const int64_t call = ++calls;
  if (records) Record(call);
  if (call != failing) return false;
  if (kills) kill(getpid(), SIGKILL);
  if (crashes) *static_cast<volatile char*>(nullptr) = 0;
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

void MapRecords(const char* folder) {
  char path[4096];
  snprintf(path, sizeof path, "%s/%d", folder, getpid());
  const int file = open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0666);
  const size_t size = mostRecords * sizeof(FaultCall);
  if (file < 0 || ftruncate(file, static_cast<off_t>(size)) != 0) abort();
  void* const mapped = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (mapped == MAP_FAILED) abort();
  records = static_cast<FaultCall*>(mapped);
  close(file);
}

void Say(const char* owner) {
  char line[64];
  const int length = snprintf(line, sizeof line, "faults: ended in %s\n", owner);
  if (write(STDERR_FILENO, line, static_cast<size_t>(length)) != length) abort();
}

// The callers can't be found, as the process has jumped to where no code is.
void SayLost(int signal) {
  Say("?");
  ::signal(signal, SIG_DFL);
  raise(signal);
}

// Says which library a signal ends the process in.
void SayWhere(int signal) {
  struct sigaction lost = {};
  lost.sa_handler = SayLost;
  lost.sa_flags = SA_NODEFER;
  sigaction(SIGSEGV, &lost, nullptr);
  Walk walk;
  _Unwind_Backtrace(TakeCaller, &walk);
  Say(walk.call.owner);
  ::signal(signal, SIG_DFL);
  raise(signal);
}

void WatchSignals() {
  struct sigaction action = {};
  action.sa_handler = SayWhere;
  action.sa_flags = SA_NODEFER;
  static const int signals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
  for (const int signal : signals) sigaction(signal, &action, nullptr);
}

struct Orders {
  Orders() {
    const char* const order = getenv("HEXLUME_FAULT");
    if (!order) return;
    WatchSignals();
    if (const char* const folder = getenv("HEXLUME_FAULT_CALLS")) MapRecords(folder);
    const size_t nameLength = strcspn(order, ":");
    int32_t kind = 0;
    while (strlen(kindNames[kind]) != nameLength || strncmp(order, kindNames[kind], nameLength) != 0)
      if (++kind == FAULT_KINDS) abort();
    const char* const number = order + nameLength;
    kills = strstr(number, ":kill") != nullptr;
    crashes = strstr(number, ":crash") != nullptr;
    hexlume_fault_arm(kind, strtoll(*number == ':' ? number + 1 : number, nullptr, 10));
  }
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

dirent* readdir(DIR* folder) {
  return Fails(FAULT_READ) ? Failed<dirent*>(EIO, nullptr) : REAL(readdir)(folder);
}
dirent64* readdir64(DIR* folder) {
  return Fails(FAULT_READ) ? Failed<dirent64*>(EIO, nullptr) : REAL(readdir64)(folder);
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
// Gives a file without a name one.
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  return Fails(FAULT_RENAME) ? Failed(EACCES, -1) : REAL(linkat)(fromFolder, from, toFolder, to, flags);
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

// Modules. What can't be loaded has a text of dlerror.
void* dlopen(const char* path, int flags) noexcept {
  return REAL(dlopen)(Fails(FAULT_MODULE) ? "/no such module" : path, flags);
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
