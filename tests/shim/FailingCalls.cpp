// Put before the C library, makes one call of a program fail: GATTR_ATTACK="write fail 3" the third write, "memory from 9" every
// allocation from the ninth on. The file named by GATTR_STRUCK is made when it has come to that, so that who asks for ever later
// calls knows when there are no more. A signal comes right before the call, which follows where the program lives on.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
}

namespace {

enum class How { Nothing, Fail, From, Signal, Short, Interrupt };
struct HowName {
  std::string_view name;
  How how;
  int signal = 0;
};
constexpr HowName kHows[] = {{"fail", How::Fail},
                             {"from", How::From},
                             {"short", How::Short},
                             {"interrupt", How::Interrupt},
                             {"kill", How::Signal, SIGKILL},
                             {"break", How::Signal, SIGINT},
                             {"terminate", How::Signal, SIGTERM},
                             {"pipe", How::Signal, SIGPIPE}};

std::string_view kind;
How how = How::Nothing;
int signalled = 0;
long wanted = 0;
char const* told = nullptr;
std::atomic<long> calls{0};

[[gnu::constructor]] void Arm() {
  char const* const attack = std::getenv("GATTR_ATTACK");
  told = std::getenv("GATTR_STRUCK");
  if (attack == nullptr || told == nullptr) { return; }
  std::string_view rest = attack;
  auto const word = [&] {
    auto const end = std::min(rest.find(' '), rest.size());
    std::string_view const first = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return first;
  };
  kind = word();
  std::string_view const name = word();
  wanted = std::atol(rest.data());
  for (HowName const& row : kHows) {
    if (row.name == name) { how = row.how, signalled = row.signal; }
  }
}

/// What is to become of this call.
How Strike(std::string_view called, int error) {
  if (how == How::Nothing || called != kind) { return How::Nothing; }
  long const call = ++calls;
  if (how == How::From ? call < wanted : call != wanted) { return How::Nothing; }
  if (call == wanted) { syscall(SYS_close, syscall(SYS_openat, AT_FDCWD, told, O_CREAT | O_WRONLY, 0600)); }
  if (how == How::Signal) {
    syscall(SYS_kill, getpid(), signalled);
    return How::Nothing;
  }
  errno = how == How::Interrupt ? EINTR : error;
  return how;
}

template <class Function> Function* Next(char const* name) { return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name)); }

}  // namespace

#define CALL(kind, error, result, name, parameters, arguments)        \
  result name parameters {                                            \
    static auto* const next = Next<result parameters>(#name);         \
    return Strike(kind, error) != How::Nothing ? -1 : next arguments; \
  }
/// \p size is what may become less.
#define TRANSFER(kind, error, name, parameters, size, ...)                          \
  ssize_t name parameters {                                                         \
    static auto* const next = Next<ssize_t parameters>(#name);                      \
    How const struck = Strike(kind, error);                                         \
    if (struck == How::Short) { size = (size + 1) / 2; }                            \
    return struck != How::Nothing && struck != How::Short ? -1 : next(__VA_ARGS__); \
  }
#define OPEN(name)                                                                \
  int name(char const* path, int flags, ...) {                                    \
    static auto* const next = Next<int(char const*, int, ...)>(#name);            \
    va_list rest;                                                                 \
    va_start(rest, flags);                                                        \
    mode_t const mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;        \
    va_end(rest);                                                                 \
    return Strike("open", EMFILE) != How::Nothing ? -1 : next(path, flags, mode); \
  }
#define FOPEN(name)                                                             \
  FILE* name(char const* path, char const* mode) {                              \
    static auto* const next = Next<FILE*(char const*, char const*)>(#name);     \
    return Strike("open", EMFILE) != How::Nothing ? nullptr : next(path, mode); \
  }
#define CONTROL(name)                                                                            \
  int name(int file, int command, ...) {                                                         \
    static auto* const next = Next<int(int, int, ...)>(#name);                                   \
    va_list rest;                                                                                \
    va_start(rest, command);                                                                     \
    void* const argument = va_arg(rest, void*);                                                  \
    va_end(rest);                                                                                \
    bool const locks = command == F_SETLK || command == F_GETLK;                                 \
    return locks && Strike("lock", ENOLCK) != How::Nothing ? -1 : next(file, command, argument); \
  }

// What the C library's headers declare as their compilers like it is defined under the names that are linked.
extern "C" {
OPEN(open)
OPEN(open64)
FOPEN(fopen)
FOPEN(fopen64)
TRANSFER("read", EIO, read, (int file, void* bytes, std::size_t size), size, file, bytes, size)
TRANSFER("read", EIO, pread, (int file, void* bytes, std::size_t size, off_t at), size, file, bytes, size, at)
TRANSFER("read", EIO, pread64, (int file, void* bytes, std::size_t size, off64_t at), size, file, bytes, size, at)
TRANSFER("write", ENOSPC, write, (int file, void const* bytes, std::size_t size), size, file, bytes, size)
TRANSFER("write", ENOSPC, pwrite, (int file, void const* bytes, std::size_t size, off_t at), size, file, bytes, size, at)
TRANSFER("write", ENOSPC, pwrite64, (int file, void const* bytes, std::size_t size, off64_t at), size, file, bytes, size, at)
TRANSFER("write", ENOSPC, writev, (int file, iovec const* pieces, int count), count, file, pieces, count)
CALL("sync", EIO, int, fsync, (int file), (file))
CALL("sync", EIO, int, fdatasync, (int file), (file))
CALL("truncate", EIO, int, ftruncate, (int file, off_t size), (file, size))
CALL("truncate", EIO, int, ftruncate64, (int file, off64_t size), (file, size))
CALL("rename", EIO, int, rename, (char const* from, char const* to), (from, to))
CALL("rename", EIO, int, renameat2, (int a, char const* from, int b, char const* to, unsigned flags), (a, from, b, to, flags))
CALL("unlink", EACCES, int, unlink, (char const* path), (path))
CALL("stat", EIO, int, stat, (char const* path, struct stat* found), (path, found))
CALL("stat", EIO, int, stat64, (char const* path, struct stat64* found), (path, found))
CALL("stat", EIO, int, lstat, (char const* path, struct stat* found), (path, found))
CALL("stat", EIO, int, lstat64, (char const* path, struct stat64* found), (path, found))
CALL("stat", EIO, int, fstat, (int file, struct stat* found), (file, found))
CALL("stat", EIO, int, fstat64, (int file, struct stat64* found), (file, found))
CALL("stat", EIO, int, access, (char const* path, int mode), (path, mode))
CALL("lock", ENOLCK, int, flock, (int file, int what), (file, what))
CONTROL(fcntl)
CONTROL(fcntl64)

void* malloc(std::size_t size) { return Strike("memory", ENOMEM) != How::Nothing ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) {
  return Strike("memory", ENOMEM) != How::Nothing ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) { return Strike("memory", ENOMEM) != How::Nothing ? nullptr : __libc_realloc(memory, size); }
}
