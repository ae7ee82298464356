#include "backend/shell.h"

#include "backend/descriptor.h"
#include "backend/log.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

extern char **environ;

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds time_to_clean_up{2}; // between SIGTERM and SIGKILL
constexpr std::chrono::seconds time_to_die{1};

// No signals blocked, none ignored; the leader of a group.
bool set_attributes(posix_spawnattr_t *attributes) {
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    constexpr short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP;
    return posix_spawnattr_setflags(attributes, flags) == 0 &&
           posix_spawnattr_setpgroup(attributes, 0) == 0 &&
           posix_spawnattr_setsigmask(attributes, &none) == 0 &&
           posix_spawnattr_setsigdefault(attributes, &all) == 0;
}

// -1: what is written there is lost.
bool set_file(posix_spawn_file_actions_t *files, int file, int standard) {
    return (file < 0 ? posix_spawn_file_actions_addopen(files, standard, "/dev/null", O_WRONLY, 0)
                     : posix_spawn_file_actions_adddup2(files, file, standard)) == 0;
}

// Not system(): that ignores SIGINT and SIGQUIT in the whole process for as long as a worker's script runs.
pid_t spawn_shell(const char *command, int output) {
    posix_spawnattr_t attributes;
    if (posix_spawnattr_init(&attributes) != 0)
        return -1;
    posix_spawn_file_actions_t files;
    if (posix_spawn_file_actions_init(&files) != 0) {
        posix_spawnattr_destroy(&attributes);
        return -1;
    }
    std::array<char, 3> shell{"sh"}, option{"-c"};
    std::string text(command); // the words are not const
    const Descriptor errors = errors_for_command();
    char *const words[] = {shell.data(), option.data(), text.data(), nullptr};
    pid_t child = -1;
    if (!set_attributes(&attributes) || !set_file(&files, output, STDOUT_FILENO) ||
        !set_file(&files, errors.get(), STDERR_FILENO) ||
        posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1) != 0 ||
        posix_spawn(&child, "/bin/sh", &files, &attributes, words, environ) != 0)
        child = -1;
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    return child;
}

// A process in a call that nothing interrupts outlives SIGKILL; its shell is waited for by later commands.
std::mutex unending_mutex;
std::vector<pid_t> unending;

void wait_for_unending() {
    const std::lock_guard held(unending_mutex);
    std::erase_if(unending, [](pid_t shell) { return waitpid(shell, nullptr, WNOHANG) != 0; });
}

// A shell that was started. It is waited for once, at the end: until then its group's number is not given
// away.
struct Shell {
    pid_t id;       // -1: it was not started
    Descriptor end; // can be read when the shell has ended; not valid where descriptors are short
    std::chrono::seconds patience;
    Clock::time_point deadline;
};

Shell start_shell(const char *command, int output, std::chrono::seconds patience) {
    wait_for_unending();
    const pid_t id = spawn_shell(command, output);
    const auto end = id < 0 ? -1 : static_cast<int>(syscall(SYS_pidfd_open, id, 0));
    return {id, Descriptor(end), patience, Clock::now() + patience};
}

bool has_ended(const Shell &shell) {
    siginfo_t end{};
    return waitid(P_PID, static_cast<id_t>(shell.id), &end, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           end.si_pid != 0;
}

// Sleeps until `until`, unless the shell ends or its output (-1: none) can be read; or for a shorter time.
void sleep_beside(const Shell &shell, int output, Clock::time_point until) {
    using std::chrono::milliseconds;
    std::array<pollfd, 2> events{{{shell.end.get(), POLLIN, 0}, {output, POLLIN, 0}}};
    const milliseconds longest = shell.end.valid() ? script_deadline : milliseconds(10);
    const auto left = std::chrono::ceil<milliseconds>(until - Clock::now());
    (void)poll(events.data(), events.size(),
               static_cast<int>(std::clamp(left, milliseconds(0), longest).count()));
}

bool ends_by(const Shell &shell, Clock::time_point until) {
    while (!has_ended(shell)) {
        if (Clock::now() >= until)
            return false;
        sleep_beside(shell, -1, until);
    }
    return true;
}

// The group gets all of its time: the shell may be gone while a script below it still cleans up.
void end_group(const char *who, const Shell &shell) {
    log_error("[ZAV-API] Error %s command took longer than %d s.\n", who,
              static_cast<int>(shell.patience.count()));
    kill(-shell.id, SIGTERM);
    std::this_thread::sleep_for(time_to_clean_up);
    kill(-shell.id, SIGKILL);
    if (ends_by(shell, Clock::now() + time_to_die)) {
        (void)waitpid(shell.id, nullptr, 0);
        return;
    }
    const std::lock_guard held(unending_mutex);
    unending.push_back(shell.id);
}

// The wait status, or -1.
int finish(const char *who, const Shell &shell) {
    if (shell.id < 0)
        return -1;
    if (!ends_by(shell, shell.deadline)) {
        end_group(who, shell);
        return -1;
    }
    int status = -1;
    return waitpid(shell.id, &status, 0) < 0 ? -1 : status;
}

// Makes lines of what comes in pieces, and cuts them. A zero byte is a byte of the line like any other.
class LineSplitter {
public:
    explicit LineSplitter(const std::function<void(std::string_view line)> &take_line)
        : take_line_(take_line) {}

    void add(std::string_view piece) {
        for (const char byte : piece) {
            if (byte == '\n')
                end_line();
            else if (length_ < line_.size())
                line_.at(length_++) = byte;
        }
    }
    void end() {
        if (length_ > 0)
            end_line();
    }

private:
    void end_line() { take_line_({line_.data(), std::exchange(length_, 0)}); }

    const std::function<void(std::string_view line)> &take_line_;
    std::array<char, 255> line_{};
    std::size_t length_ = 0;
};

std::size_t pipe_bytes(int pipe) {
    const int bytes = fcntl(pipe, F_GETPIPE_SZ);
    return bytes > 0 ? static_cast<std::size_t>(bytes) : 65536;
}

// Reads until the output ends, the command, or its time. False when it cannot be read. What a command that
// has ended wrote itself is in the pipe: behind that, one that it left in the background could go on for
// ever.
bool read_lines(const Shell &shell, int output, LineSplitter *lines) {
    std::array<char, 1024> piece;
    auto left = std::numeric_limits<std::size_t>::max();
    for (bool ended = false; left > 0 && Clock::now() < shell.deadline;) {
        if (!ended && has_ended(shell)) { // before the read: what is there then is all of it
            ended = true;
            left = pipe_bytes(output);
        }
        const ssize_t length = read(output, piece.data(), std::min(piece.size(), left));
        if (length > 0) {
            lines->add({piece.data(), static_cast<std::size_t>(length)});
            left -= ended ? static_cast<std::size_t>(length) : 0;
        } else if (length == 0 || (errno == EAGAIN && ended)) {
            break;
        } else if (errno == EAGAIN) {
            sleep_beside(shell, output, shell.deadline);
        } else if (errno != EINTR) {
            return false;
        }
    }
    lines->end();
    return true;
}

} // namespace

Status run_command(const char *who, const char *command, std::unique_lock<std::mutex> held,
                   std::chrono::seconds deadline) {
    log_debug("[ZAV-API] %s command=%s\n", who, command);
    const Shell shell = start_shell(command, output_for_command().get(), deadline);
    if (held)
        held.unlock();
    const int rc = finish(who, shell);
    if (rc == -1)
        return failure;
    // Only the exit status byte counts: a shell that a signal ended has done its work as far as is known.
    const int exit_status = WEXITSTATUS(rc);
    if (exit_status != 0) {
        log_error("[ZAV-API] Error %s command failed (rc=%d,WEXITSTATUS=%d).\n", who, rc, exit_status);
        return failure;
    }
    return success;
}

int run_unchecked(const char *who, const char *command, std::chrono::seconds deadline) {
    const Shell shell = start_shell(command, output_for_command().get(), deadline);
    const int rc = finish(who, shell);
    return rc == -1 ? -1 : WEXITSTATUS(rc);
}

Status read_command(const char *who, const char *command, std::chrono::seconds deadline,
                    const std::function<void(std::string_view line)> &take_line) {
    std::array<int, 2> ends;
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return failure;
    Descriptor reading(ends[0]), writing(ends[1]);
    if (fcntl(reading.get(), F_SETFL, O_NONBLOCK) != 0)
        return failure;
    const Shell shell = start_shell(command, writing.get(), deadline);
    (void)writing.close();
    if (shell.id < 0)
        return failure;
    LineSplitter lines(take_line);
    const bool is_whole = read_lines(shell, reading.get(), &lines);
    (void)reading.close(); // before the wait: the command may still write
    return finish(who, shell) == -1 || !is_whole ? failure : success;
}
