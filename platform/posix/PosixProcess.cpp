#include "platform/posix/PosixProcess.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

extern char** environ;

namespace morvane {

namespace {

constexpr std::chrono::milliseconds kTurn{1};

/// Moves a file above the three standard numbers, which a program that was started without them
/// gives away to the first files that it opens.
FileHandle AboveStandard(FileHandle handle) {
  if (!handle.IsOpen() || handle.Get() > STDERR_FILENO) return handle;
  return FileHandle(fcntl(handle.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

/// How a child starts: in a session of its own, with the signals as the system sets them.
class SpawnAttributes {
 public:
  SpawnAttributes() {
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM, SIGCHLD, SIGXFSZ}) {
      sigaddset(&signals, signal);
    }
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;

  posix_spawnattr_t attributes;
};

/// The files that a child finds under the standard numbers.
class SpawnFiles {
 public:
  SpawnFiles() { posix_spawn_file_actions_init(&actions); }
  ~SpawnFiles() { posix_spawn_file_actions_destroy(&actions); }
  SpawnFiles(const SpawnFiles&) = delete;
  SpawnFiles& operator=(const SpawnFiles&) = delete;
  bool Give(const FileHandle& handle, int number) {
    return posix_spawn_file_actions_adddup2(&actions, handle.Get(), number) == 0;
  }

  posix_spawn_file_actions_t actions;
};

}  // namespace

FileHandle::FileHandle(FileHandle&& other) noexcept : file(std::exchange(other.file, -1)) {}

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept {
  if (this != &other) {
    Close();
    file = std::exchange(other.file, -1);
  }
  return *this;
}

void FileHandle::Close() {
  if (IsOpen()) close(std::exchange(file, -1));
}

bool Pipe::Create() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return false;
  read = AboveStandard(FileHandle(ends[0]));
  write = AboveStandard(FileHandle(ends[1]));
  return read.IsOpen() && write.IsOpen();
}

std::unique_ptr<PosixProcess> PosixProcess::Start(const CommandParts& command) {
  if (command.program.empty()) return nullptr;
  std::unique_ptr<PosixProcess> process(new PosixProcess);
  if (!process->CreatePipes() || !process->Spawn(command)) return nullptr;
  // Only the child holds the ends that it writes to, so that each stream ends by itself when all
  // has been read that the child and its helpers wrote.
  process->CloseInherited();
  return process;
}

bool PosixProcess::CreatePipes() {
  Pipe in;
  Pipe out;
  Pipe err;
  if (!stop.Create() || !in.Create() || !out.Create() || !err.Create()) return false;
  childInput = std::move(in.read);
  childOutput = std::move(out.write);
  childError = std::move(err.write);
  input = std::move(in.write);
  outputs[0].handle = std::move(out.read);
  outputs[1].handle = std::move(err.read);
  return true;
}

bool PosixProcess::Spawn(const CommandParts& command) {
  SpawnFiles files;
  if (!files.Give(childInput, STDIN_FILENO) || !files.Give(childOutput, STDOUT_FILENO) ||
      !files.Give(childError, STDERR_FILENO)) {
    return false;
  }
  std::vector<std::string> words = command.arguments;
  words.insert(words.begin(), command.program);
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const SpawnAttributes how;
  pid_t started = 0;
  if (posix_spawn(&started, command.program.c_str(), &files.actions, &how.attributes,
                  arguments.data(), environ) != 0) {
    return false;
  }
  pid = started;
  ended = FileHandle(static_cast<int>(syscall(SYS_pidfd_open, pid, 0U)));
  return true;
}

PosixProcess::~PosixProcess() {
  // The system keeps the number of an ended process until it is asked for.
  if (pid != 0) waitpid(pid, nullptr, WNOHANG);
}

std::size_t PosixProcess::Read(Stream stream, std::span<char> buffer) {
  OwnEnd& end = outputs[static_cast<std::size_t>(stream)];
  const std::lock_guard guard(end.lock);
  while (end.handle.IsOpen()) {
    pollfd files[] = {{end.handle.Get(), POLLIN, 0}, {stop.read.Get(), POLLIN, 0}};
    if (poll(files, std::size(files), -1) < 0) {
      if (errno == EINTR) continue;
      return 0;
    }
    if (files[1].revents != 0) return 0;
    const ssize_t count = read(end.handle.Get(), buffer.data(), buffer.size());
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR && errno != EAGAIN) return 0;
  }
  return 0;
}

bool PosixProcess::Ask(siginfo_t& info) const {
  info = {};
  // The number stays taken, so that a later signal can't reach a stranger.
  return waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) == 0;
}

bool PosixProcess::HasEnded() const {
  siginfo_t info;
  return Ask(info) ? info.si_pid == pid : errno == ECHILD;
}

std::optional<ProcessEnd> PosixProcess::End() {
  siginfo_t info;
  if (!Ask(info) || info.si_pid != pid) return std::nullopt;
  const bool exited = info.si_code == CLD_EXITED;
  return ProcessEnd{exited ? ProcessEnd::How::Exited : ProcessEnd::How::Killed, info.si_status};
}

bool PosixProcess::WaitForEnd(std::chrono::milliseconds limit) {
  // An older system gives no handle that tells of the end.
  const auto turn = ended.IsOpen() ? limit : kTurn;
  for (; limit.count() > 0 && !HasEnded(); limit -= turn) {
    pollfd end{ended.Get(), POLLIN, 0};
    poll(&end, 1, static_cast<int>(turn.count()));
  }
  return HasEnded();
}

void PosixProcess::SignalStop() { stop.write.Close(); }

void PosixProcess::CloseInherited() {
  childInput.Close();
  childOutput.Close();
  childError.Close();
}

void PosixProcess::CloseOwn() {
  input.Close();
  for (OwnEnd& end : outputs) {
    const std::lock_guard guard(end.lock);
    end.handle.Close();
  }
}

void PosixProcess::Terminate() {
  if (!HasEnded()) kill(-pid, SIGKILL);
}

std::unique_ptr<Process> PosixProcesses::Start(const std::string& commandLine,
                                               bool /*showWindow*/) {
  return PosixProcess::Start(SplitCommandLine(commandLine));
}

void PosixProcesses::Sleep(std::chrono::milliseconds time) { std::this_thread::sleep_for(time); }

Processes& Processes::Default() {
  static PosixProcesses service;
  return service;
}

}  // namespace morvane
