#include "platform.hpp"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

#ifdef _WIN32
#include <io.h>
#else
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace varnel::cli {

namespace {

volatile std::sig_atomic_t signal_caught = 0;

#ifdef _WIN32

void remember_signal(int signal) { signal_caught = signal; }

#else

// The handler writes to this pipe, so that a read that waits is woken, however late the signal comes.
int wake_pipe[2] = {-1, -1};

void remember_signal(int signal) {
  const int error = errno;
  signal_caught = signal;
  static_cast<void>(!write(wake_pipe[1], "", 1)); // a full pipe wakes as well
  errno = error;
}

void catch_signal(int signal) {
  struct sigaction action = {};
  if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) {
    return;
  }
  action = {};
  action.sa_handler = remember_signal;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigaction(signal, &action, nullptr);
}

// Its ends stay clear of the numbers of the standard streams, which the caller may have closed.
void open_wake_pipe() {
  int ends[2];
  if (pipe(ends) != 0) {
    return;
  }
  for (const int i : {0, 1}) {
    wake_pipe[i] = fcntl(ends[i], F_DUPFD_CLOEXEC, STANDARD_ERROR + 1);
    fcntl(wake_pipe[i], F_SETFL, O_NONBLOCK);
    close(ends[i]);
  }
}

bool would_block(int error) { return error == EAGAIN || error == EWOULDBLOCK; }

void wait_for(int descriptor, short event) {
  pollfd waited[] = {{descriptor, event, 0}, {wake_pipe[0], POLLIN, 0}};
  const bool reads = event == POLLIN; // what is being written is written to its end
  poll(waited, reads ? 2 : 1, -1);    // a failure shows in the call that is waited for
}

#endif

} // namespace

bool stopped() { return signal_caught != 0; }

#ifdef _WIN32

void prepare_process() {
  for (const int descriptor : {STANDARD_INPUT, STANDARD_OUTPUT}) {
    _setmode(descriptor, _O_BINARY);
  }
  std::signal(SIGINT, remember_signal);
  std::signal(SIGTERM, remember_signal);
}

bool is_terminal(int descriptor) { return _isatty(descriptor) != 0; }

std::size_t terminal_width(int) { return 0; }

int open_file(const std::string &path) { return _open(path.c_str(), _O_RDONLY | _O_BINARY); }

void close_file(int descriptor) { _close(descriptor); }

// Files have no numbers to know them by here.
bool is_output_file(int) { return false; }

bool would_wait(int descriptor) {
  struct _stat status = {};
  return _fstat(descriptor, &status) != 0 || (status.st_mode & _S_IFMT) != _S_IFREG;
}

std::ptrdiff_t read_some(int descriptor, char *into, std::size_t room) {
  if (stopped()) {
    errno = EINTR;
    return -1;
  }
  const int count = _read(descriptor, into, static_cast<unsigned>(room));
  if (stopped()) {
    errno = EINTR;
    return -1;
  }
  return count;
}

int write_all(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const int count = _write(descriptor, bytes.data(), static_cast<unsigned>(bytes.size()));
    if (count < 0) {
      return errno;
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

#else

void prepare_process() {
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  open_wake_pipe();
  catch_signal(SIGINT);
  catch_signal(SIGTERM);
}

bool is_terminal(int descriptor) { return isatty(descriptor) == 1; }

std::size_t terminal_width(int descriptor) {
  winsize size = {};
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

int open_file(const std::string &path) { return open(path.c_str(), O_RDONLY | O_CLOEXEC); }

void close_file(int descriptor) { close(descriptor); }

bool is_output_file(int descriptor) {
  struct stat in = {};
  struct stat out = {};
  if (fstat(descriptor, &in) != 0 || fstat(STANDARD_OUTPUT, &out) != 0) {
    return false;
  }
  return S_ISREG(in.st_mode) && in.st_dev == out.st_dev && in.st_ino == out.st_ino &&
         lseek(descriptor, 0, SEEK_CUR) < in.st_size;
}

bool would_wait(int descriptor) {
  pollfd waited = {descriptor, POLLIN, 0};
  return poll(&waited, 1, 0) == 0;
}

std::ptrdiff_t read_some(int descriptor, char *into, std::size_t room) {
  while (true) {
    wait_for(descriptor, POLLIN);
    if (stopped()) {
      errno = EINTR;
      return -1;
    }
    const ssize_t count = read(descriptor, into, room);
    if (count >= 0 || (errno != EINTR && !would_block(errno))) {
      return count;
    }
  }
}

int write_all(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(descriptor, bytes.data(), bytes.size());
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (would_block(errno)) {
      wait_for(descriptor, POLLOUT);
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

#endif

void end_as_signalled() {
  if (stopped()) {
    static_cast<void>(std::signal(signal_caught, SIG_DFL));
    static_cast<void>(std::raise(signal_caught));
  }
}

bool file_exists(const std::string &path) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0;
}

std::uint64_t file_size(const std::string &operand) {
  struct stat status = {};
  const int result = operand == "-" ? fstat(STANDARD_INPUT, &status) : stat(operand.c_str(), &status);
  const bool regular = result == 0 && (status.st_mode & S_IFMT) == S_IFREG;
  return regular ? static_cast<std::uint64_t>(status.st_size) : 0;
}

} // namespace varnel::cli
