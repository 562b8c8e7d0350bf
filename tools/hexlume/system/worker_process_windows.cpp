#include "tools/hexlume/system/worker_process.h"

#include <windows.h>

// The function that Windows XP has too.
#define PSAPI_VERSION 1
#include <psapi.h>

#include "tools/hexlume/system/wide_text.h"

namespace hexlume {
namespace {

[[noreturn]] void Fail() {
  throw WorkerError(WordsOfError(GetLastError()));
}

class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE opened) : handle(opened == INVALID_HANDLE_VALUE ? nullptr : opened) {}
  Handle(Handle&& other) noexcept : handle(other.handle) { other.handle = nullptr; }
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle, other.handle);
    return *this;
  }
  ~Handle() {
    if (handle) CloseHandle(handle);
  }

  HANDLE Get() const { return handle; }
  explicit operator bool() const { return handle != nullptr; }

 private:
  HANDLE handle = nullptr;
};

struct Pipe {
  Handle ours, theirs;  // theirs is inherited by the worker
};

// Only a pipe with a name can be read without waiting.
Pipe MakePipe(bool weRead) {
  static int count = 0;
  constexpr DWORD bufferSize = 65536;
  const std::wstring name =
      L"\\\\.\\pipe\\hexlume-" + std::to_wstring(GetCurrentProcessId()) + L'-' + std::to_wstring(++count);
  const DWORD direction = weRead ? PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED : PIPE_ACCESS_OUTBOUND;
  Pipe pipe;
  pipe.ours = Handle(CreateNamedPipeW(name.c_str(), direction | FILE_FLAG_FIRST_PIPE_INSTANCE,
                                      PIPE_TYPE_BYTE | PIPE_WAIT, 1, bufferSize, bufferSize, 0, nullptr));
  if (!pipe.ours) Fail();
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  pipe.theirs = Handle(CreateFileW(name.c_str(), weRead ? GENERIC_WRITE : GENERIC_READ, 0, &inherited,
                                   OPEN_EXISTING, 0, nullptr));
  if (!pipe.theirs) Fail();
  return pipe;
}

// A job whose processes end with this one, and can't take much more memory than the limit.
Handle MakeJob(int64_t memoryLimit) {
  constexpr int64_t allowance = 256 << 20;
  Handle job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  const int64_t most = 2 * memoryLimit + allowance;
  if (static_cast<int64_t>(static_cast<SIZE_T>(most)) == most) {
    limits.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_MEMORY;
    limits.ProcessMemoryLimit = static_cast<SIZE_T>(most);
  }
  SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

class WindowsWorker : public WorkerProcess {
 public:
  explicit WindowsWorker(int64_t memoryLimit)
      : job(MakeJob(memoryLimit)), arrival(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    Pipe toWorker = MakePipe(false), fromWorker = MakePipe(true);
    StartProcess(toWorker.theirs.Get(), fromWorker.theirs.Get());
    // Where the tool itself is in a job, an old system allows no second one.
    AssignProcessToJobObject(job.Get(), process.Get());
    output = std::move(toWorker.ours);
    input = std::move(fromWorker.ours);
    StartReading();
  }

  ~WindowsWorker() override {
    TerminateProcess(process.Get(), 1);
    WaitForSingleObject(process.Get(), INFINITE);
    if (ended) return;
    // The buffer must stay until the system has given up the reading.
    CancelIo(input.Get());
    DWORD got = 0;
    GetOverlappedResult(input.Get(), &reading, &got, TRUE);
  }

  void Send(const std::string& bytes) override {
    size_t done = 0;
    while (done < bytes.size()) {
      DWORD written = 0;
      if (!WriteFile(output.Get(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &written,
                     nullptr))
        return;
      done += written;
    }
  }

  std::string Receive() override {
    std::string bytes;
    while (!ended && WaitForSingleObject(arrival.Get(), 0) == WAIT_OBJECT_0) {
      DWORD got = 0;
      if (!GetOverlappedResult(input.Get(), &reading, &got, FALSE)) {
        ended = true;
        break;
      }
      bytes.append(chunk, got);
      StartReading();
    }
    return bytes;
  }

  bool HasEnded() const override { return ended; }

  int64_t MemoryInUse() const override {
    PROCESS_MEMORY_COUNTERS memory = {};
    if (!GetProcessMemoryInfo(process.Get(), &memory, sizeof memory)) return 0;
    return static_cast<int64_t>(memory.PagefileUsage);
  }

  HANDLE Arrival() const { return arrival.Get(); }

 private:
  void StartProcess(HANDLE standardInput, HANDLE standardOutput) {
    constexpr DWORD longest = 32768;
    std::wstring program(longest, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), longest));
    std::wstring command = L"hexlume.exe " + WideText(workerArgument);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = standardInput;
    start.hStdOutput = standardOutput;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &started))
      Fail();
    CloseHandle(started.hThread);
    process = Handle(started.hProcess);
  }

  // The event is set when something has come, at once or later. At the end of the process too.
  void StartReading() {
    ResetEvent(arrival.Get());
    reading = {};
    reading.hEvent = arrival.Get();
    if (!ReadFile(input.Get(), chunk, sizeof chunk, nullptr, &reading) && GetLastError() != ERROR_IO_PENDING)
      ended = true;
  }

  Handle job, process, output, input, arrival;
  OVERLAPPED reading = {};
  char chunk[65536];
  bool ended = false;
};

}  // namespace

std::unique_ptr<WorkerProcess> WorkerProcess::Start(int64_t memoryLimit) {
  return std::make_unique<WindowsWorker>(memoryLimit);
}

void WaitForWorkers(const std::vector<WorkerProcess*>& workers, int milliseconds) {
  std::vector<HANDLE> arrivals;
  for (const WorkerProcess* const worker : workers) {
    if (worker->HasEnded()) return;
    arrivals.push_back(static_cast<const WindowsWorker*>(worker)->Arrival());
  }
  WaitForMultipleObjects(static_cast<DWORD>(arrivals.size()), arrivals.data(), FALSE,
                         static_cast<DWORD>(milliseconds));
}

// The job of the process does the rest.
void PrepareWorker(int64_t) {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
}

}  // namespace hexlume
