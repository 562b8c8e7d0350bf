#include "tools/hexlume/system/worker_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/auxv.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace hexlume {
namespace {

const char* OwnProgram() {
  constexpr const char* link = "/proc/self/exe";
  // A bare chroot may have no /proc. The system keeps the path by which the program was started, too.
  return access(link, X_OK) == 0 ? link : reinterpret_cast<const char*>(getauxval(AT_EXECFN));
}

// Of a process: all that is mapped, and what is in memory.
struct MemoryPages {
  int64_t mapped = 0, resident = 0;
};

MemoryPages MemoryOf(const std::string& process) {
  MemoryPages pages;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
      std::fopen(("/proc/" + process + "/statm").c_str(), "re"), std::fclose);
  long mapped = 0, resident = 0;
  if (file && std::fscanf(file.get(), "%ld %ld", &mapped, &resident) == 2) pages = {mapped, resident};
  return pages;
}

int64_t PageSize() {
  return sysconf(_SC_PAGESIZE);
}

void LimitMemory(int64_t memoryLimit) {
  constexpr int64_t allowance = int64_t{1} << 30;
  const int64_t most = 2 * memoryLimit + allowance;
  // A build that checks memory has mapped much more already.
  if (MemoryOf("self").mapped * PageSize() > most) return;
  const rlimit limit = {static_cast<rlim_t>(most), static_cast<rlim_t>(most)};
  setrlimit(RLIMIT_AS, &limit);
}

class LinuxWorker : public WorkerProcess {
 public:
  LinuxWorker(pid_t started, int toWorker, int fromWorker)
      : process(started), output(toWorker), input(fromWorker) {}

  ~LinuxWorker() override {
    close(output);
    close(input);
    kill(process, SIGKILL);
    while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
  }

  void Send(const std::string& bytes) override {
    size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t written = write(output, bytes.data() + done, bytes.size() - done);
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) {
        // It would wait for the rest for ever. So its drawing fails as after any other end.
        kill(process, SIGKILL);
        return;
      }
      done += static_cast<size_t>(written);
    }
  }

  std::string Receive() override {
    std::string bytes;
    char chunk[65536];
    while (!ended) {
      const ssize_t got = read(input, chunk, sizeof chunk);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) return bytes;
      if (got == 0) ended = true;
      bytes.append(chunk, static_cast<size_t>(got));
    }
    return bytes;
  }

  bool HasEnded() const override { return ended; }

  int64_t MemoryInUse() const override { return MemoryOf(std::to_string(process)).resident * PageSize(); }

  int Input() const { return input; }

 private:
  pid_t process;
  int output, input;
  bool ended = false;
};

struct Pipe {
  Pipe() {
    if (pipe2(ends, O_CLOEXEC) != 0) throw WorkerError(std::strerror(errno));
  }
  ~Pipe() {
    for (const int end : ends)
      if (end >= 0) close(end);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int Release(int index) {
    const int end = ends[index];
    ends[index] = -1;
    return end;
  }

  int ends[2];
};

struct SpawnSettings {
  SpawnSettings() {
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
  }
  ~SpawnSettings() {
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  // The worker ends when nobody reads what it writes.
  void RestorePipeSignal() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  }

  posix_spawn_file_actions_t files;
  posix_spawnattr_t attributes;
};

}  // namespace

std::unique_ptr<WorkerProcess> WorkerProcess::Start(int64_t) {
  // A worker can end while it is sent a drawing.
  signal(SIGPIPE, SIG_IGN);
  Pipe toWorker, fromWorker;
  SpawnSettings settings;
  posix_spawn_file_actions_adddup2(&settings.files, toWorker.ends[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&settings.files, fromWorker.ends[1], STDOUT_FILENO);
  settings.RestorePipeSignal();
  std::string name = "hexlume", argument = workerArgument;
  char* const arguments[] = {name.data(), argument.data(), nullptr};
  pid_t process = 0;
  const int error =
      posix_spawn(&process, OwnProgram(), &settings.files, &settings.attributes, arguments, environ);
  if (error != 0) throw WorkerError(std::strerror(error));
  fcntl(fromWorker.ends[0], F_SETFL, O_NONBLOCK);
  return std::make_unique<LinuxWorker>(process, toWorker.Release(1), fromWorker.Release(0));
}

void WaitForWorkers(const std::vector<WorkerProcess*>& workers, int milliseconds) {
  std::vector<pollfd> streams;
  streams.reserve(workers.size());
  for (const WorkerProcess* const worker : workers)
    streams.push_back({static_cast<const LinuxWorker*>(worker)->Input(), POLLIN, 0});
  poll(streams.data(), streams.size(), milliseconds);
}

void PrepareWorker(int64_t memoryLimit) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const rlimit noCore = {0, 0};
  setrlimit(RLIMIT_CORE, &noCore);
  LimitMemory(memoryLimit);
}

}  // namespace hexlume
