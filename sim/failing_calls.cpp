// Preloaded into the daemon, before the simulated driver: lets one call of one kind fail, on order.

#include "failing_calls.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

extern "C" void *__libc_malloc(std::size_t); // NOLINT(bugprone-reserved-identifier): it is glibc's
extern "C" void *__libc_calloc(std::size_t, std::size_t);
extern "C" void *__libc_realloc(void *, std::size_t);

namespace {

FailingCalls *order = nullptr;
// In the simulated driver, and in the thread that watches the registration, whenever it likes.
[[gnu::tls_model("initial-exec")]] thread_local bool spared = false;

[[gnu::constructor]] void find_order() {
    const int fd = open(FailingCalls::file, O_RDWR | O_CLOEXEC);
    void *shared = mmap(nullptr, sizeof *order, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    close(fd);
    order = shared == MAP_FAILED ? nullptr : static_cast<FailingCalls *>(shared);
}

bool fails(CallKind kind, int error) {
    if (order == nullptr || spared || order->kind != kind || --order->left != 0)
        return false;
    ++order->failed; // before the drill may look
    order->kind = CallKind::none;
    errno = error;
    return true;
}

template <class Function>
Function *next(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

template <class Function, class... Values>
auto in_driver(Function *function, Values... values) {
    const bool before = spared;
    spared = true;
    const auto result = function(values...);
    spared = before;
    return result;
}

void *watch_registration(void *body) {
    spared = true;
    return reinterpret_cast<void *(*)(void *)>(body)(nullptr);
}

} // namespace

extern "C" {

void *malloc(std::size_t size) { return fails(CallKind::allocation, ENOMEM) ? nullptr : __libc_malloc(size); }

void *calloc(std::size_t count, std::size_t size) {
    return fails(CallKind::allocation, ENOMEM) ? nullptr : __libc_calloc(count, size);
}

void *realloc(void *old, std::size_t size) {
    return fails(CallKind::allocation, ENOMEM) ? nullptr : __libc_realloc(old, size);
}

int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*body)(void *),
                   void *argument) {
    static const auto real = next<decltype(pthread_create)>("pthread_create");
    static std::atomic<int> created = 0;
    if (created++ == 0)
        return real(thread, attributes, watch_registration, reinterpret_cast<void *>(body));
    return fails(CallKind::thread, EAGAIN) ? EAGAIN : real(thread, attributes, body, argument);
}

int pipe2(int *ends, int flags) {
    static const auto real = next<decltype(pipe2)>("pipe2");
    return fails(CallKind::pipe, EMFILE) ? -1 : real(ends, flags);
}

int socket(int domain, int type, int protocol) {
    static const auto real = next<decltype(socket)>("socket");
    return fails(CallKind::socket, EMFILE) ? -1 : real(domain, type, protocol);
}

int ioctl(int fd, unsigned long number, ...) {
    static const auto real = next<int(int, unsigned long, void *)>("ioctl");
    va_list values;
    va_start(values, number);
    void *request = va_arg(values, void *);
    va_end(values);
    return fails(CallKind::ioctl, EIO) ? -1 : in_driver(real, fd, number, request);
}

int posix_spawn(pid_t *child, const char *path, const posix_spawn_file_actions_t *files,
                const posix_spawnattr_t *attributes, char *const words[], char *const variables[]) {
    static const auto real = next<decltype(posix_spawn)>("posix_spawn");
    return fails(CallKind::spawn, EAGAIN) ? EAGAIN : real(child, path, files, attributes, words, variables);
}

int open(const char *path, int flags, ...) {
    static const auto real = next<int(const char *, int, mode_t)>("open");
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    return fails(CallKind::open, EMFILE) ? -1 : real(path, flags, mode);
}

int nanosleep(const timespec *wanted, timespec *left) {
    static const auto real = next<decltype(nanosleep)>("nanosleep");
    return in_driver(real, wanted, left);
}

int __open_2(const char *path, int flags) {
    return open(path, flags);
} // NOLINT(bugprone-reserved-identifier)

ssize_t recvmsg(int fd, msghdr *message, int flags) {
    static const auto real = next<decltype(recvmsg)>("recvmsg");
    return in_driver(real, fd, message, flags);
}

ssize_t sendmsg(int fd, const msghdr *message, int flags) {
    static const auto real = next<decltype(sendmsg)>("sendmsg");
    return in_driver(real, fd, message, flags);
}

} // extern "C"
