#include "platform/windows/WindowsProcess.h"

#include <algorithm>
#include <thread>
#include <vector>
#include <windows.h>

#include "platform/windows/WideText.h"

namespace morvane {

namespace {

/// Exit codes from here on are those of exceptions that nobody has handled.
constexpr DWORD kFirstException = 0xC0000000;
constexpr UINT kTerminatedCode = 1;

std::wstring NewPipeName() {
  static std::atomic<unsigned> pipes = 0;
  return L"\\\\.\\pipe\\morvane-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
         std::to_wstring(++pipes);
}

/// A pipe whose read end is ours and can be waited for together with something else, which the
/// system's plain pipes don't offer. No program that is started inherits an end unless it is told
/// to.
bool CreateOutputPipe(SystemHandle& read, SystemHandle& write) {
  constexpr DWORD size = 1U << 16;
  const std::wstring name = NewPipeName();
  read = SystemHandle(CreateNamedPipeW(
      name.c_str(), PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
      PIPE_TYPE_BYTE | PIPE_WAIT, 1, size, size, 0, nullptr));
  if (!read.IsOpen()) return false;
  write = SystemHandle(CreateFileW(name.c_str(), GENERIC_WRITE | FILE_READ_ATTRIBUTES, 0, nullptr,
                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  return write.IsOpen();
}

SystemHandle CreateManualEvent() {
  return SystemHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
}

/// How a child starts: with the three handles and no other of ours.
class StartUp {
 public:
  StartUp(std::array<HANDLE, 3> files, bool showWindow) : files(files) {
    info.StartupInfo.cb = sizeof(info);
    info.StartupInfo.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
    info.StartupInfo.wShowWindow = showWindow ? SW_SHOW : SW_HIDE;
    info.StartupInfo.hStdInput = files[0];
    info.StartupInfo.hStdOutput = files[1];
    info.StartupInfo.hStdError = files[2];
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    room.resize(size);
    info.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(room.data());
    if (InitializeProcThreadAttributeList(info.lpAttributeList, 1, 0, &size) == 0) return;
    isMade = true;
    isReady =
        UpdateProcThreadAttribute(info.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST,
                                  this->files.data(), sizeof(this->files), nullptr, nullptr) != 0;
    for (HANDLE file : files) {
      isReady = isReady && SetHandleInformation(file, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    }
  }
  ~StartUp() {
    if (isMade) DeleteProcThreadAttributeList(info.lpAttributeList);
  }
  StartUp(const StartUp&) = delete;
  StartUp& operator=(const StartUp&) = delete;

  bool IsReady() const { return isReady; }
  STARTUPINFOW* Info() { return &info.StartupInfo; }

 private:
  std::array<HANDLE, 3> files;
  std::vector<char> room;
  STARTUPINFOEXW info{};
  bool isMade = false;
  bool isReady = false;
};

/// What happens to the processes of a job once its handle is closed.
bool EndWithJob(HANDLE job, bool ends) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = ends ? JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE : 0;
  return SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof(limits)) !=
         0;
}

}  // namespace

std::unique_ptr<WindowsProcess> WindowsProcess::Start(const std::string& commandLine,
                                                      bool showWindow) {
  std::unique_ptr<WindowsProcess> process(new WindowsProcess);
  const bool isReady = process->CreatePipes() && process->CreateJob();
  if (!isReady || !process->Spawn(commandLine, showWindow)) return nullptr;
  // Only the child holds the ends that it writes to, so that each stream ends by itself when all
  // has been read that the child and its helpers wrote.
  process->CloseInherited();
  return process;
}

bool WindowsProcess::CreatePipes() {
  stop = CreateManualEvent();
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  if (!stop.IsOpen() || CreatePipe(&read, &write, nullptr, 0) == 0) return false;
  childInput = SystemHandle(read);
  input = SystemHandle(write);
  for (OwnEnd& end : outputs) {
    SystemHandle& child = &end == &outputs[0] ? childOutput : childError;
    end.arrived = CreateManualEvent();
    if (!end.arrived.IsOpen() || !CreateOutputPipe(end.handle, child)) return false;
  }
  return true;
}

bool WindowsProcess::CreateJob() {
  job = SystemHandle(CreateJobObjectW(nullptr, nullptr));
  return job.IsOpen() && EndWithJob(job.Get(), true);
}

bool WindowsProcess::Spawn(const std::string& commandLine, bool showWindow) {
  StartUp start({childInput.Get(), childOutput.Get(), childError.Get()}, showWindow);
  if (!start.IsReady()) return false;
  std::wstring line = Wide(commandLine);
  PROCESS_INFORMATION started{};
  // It runs not before it is in the job, so that none of its helpers is outside.
  constexpr DWORD how = CREATE_NEW_CONSOLE | CREATE_SUSPENDED | EXTENDED_STARTUPINFO_PRESENT;
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, how, nullptr, nullptr,
                     start.Info(), &started) == 0) {
    return false;
  }
  process = SystemHandle(started.hProcess);
  const SystemHandle thread(started.hThread);
  if (AssignProcessToJobObject(job.Get(), process.Get()) == 0 ||
      ResumeThread(thread.Get()) == static_cast<DWORD>(-1)) {
    TerminateProcess(process.Get(), kTerminatedCode);
    return false;
  }
  return true;
}

WindowsProcess::~WindowsProcess() {
  // What a tool has left behind when it ended by itself is its own business.
  if (process.IsOpen() && HasEnded() && !terminated) EndWithJob(job.Get(), false);
}

std::size_t WindowsProcess::Read(Stream stream, std::span<char> buffer) {
  OwnEnd& end = outputs[static_cast<std::size_t>(stream)];
  const std::lock_guard guard(end.lock);
  if (!end.handle.IsOpen() || WaitForSingleObject(stop.Get(), 0) == WAIT_OBJECT_0) return 0;
  OVERLAPPED read{};
  read.hEvent = end.arrived.Get();
  const BOOL done =
      ReadFile(end.handle.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), nullptr, &read);
  if (done == 0 && GetLastError() != ERROR_IO_PENDING) return 0;
  const std::array<HANDLE, 2> either = {stop.Get(), end.arrived.Get()};
  const DWORD first = WaitForMultipleObjects(either.size(), either.data(), FALSE, INFINITE);
  if (first != WAIT_OBJECT_0 + 1) CancelIoEx(end.handle.Get(), &read);
  DWORD count = 0;
  // The buffer is the system's until this.
  const bool hasCome = GetOverlappedResult(end.handle.Get(), &read, &count, TRUE) != 0;
  return hasCome && first == WAIT_OBJECT_0 + 1 ? count : 0;
}

bool WindowsProcess::HasEnded() const {
  return WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0;
}

bool WindowsProcess::WaitForEnd(std::chrono::milliseconds limit) {
  const auto time = std::max(limit, std::chrono::milliseconds::zero());
  return WaitForSingleObject(process.Get(), static_cast<DWORD>(time.count())) == WAIT_OBJECT_0;
}

std::optional<ProcessEnd> WindowsProcess::End() {
  DWORD code = 0;
  if (!HasEnded() || GetExitCodeProcess(process.Get(), &code) == 0) return std::nullopt;
  const bool isKilled = code >= kFirstException || terminated;
  return ProcessEnd{isKilled ? ProcessEnd::How::Killed : ProcessEnd::How::Exited,
                    static_cast<int>(code)};
}

void WindowsProcess::SignalStop() { SetEvent(stop.Get()); }

void WindowsProcess::CloseInherited() {
  childInput.Close();
  childOutput.Close();
  childError.Close();
}

void WindowsProcess::CloseOwn() {
  input.Close();
  for (OwnEnd& end : outputs) {
    const std::lock_guard guard(end.lock);
    end.handle.Close();
  }
}

void WindowsProcess::Terminate() {
  if (HasEnded()) return;
  terminated = true;
  TerminateJobObject(job.Get(), kTerminatedCode);
}

std::unique_ptr<Process> WindowsProcesses::Start(const std::string& commandLine, bool showWindow) {
  return WindowsProcess::Start(commandLine, showWindow);
}

void WindowsProcesses::Sleep(std::chrono::milliseconds time) { std::this_thread::sleep_for(time); }

Processes& Processes::Default() {
  static WindowsProcesses service;
  return service;
}

}  // namespace morvane
