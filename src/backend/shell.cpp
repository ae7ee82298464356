#include "backend/shell.h"

#include "backend/descriptor.h"
#include "backend/log.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <utility>

extern char **environ;

namespace {

// No signals blocked, none ignored.
bool set_signals(posix_spawnattr_t *attributes) {
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    return posix_spawnattr_setflags(attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF) == 0 &&
           posix_spawnattr_setsigmask(attributes, &none) == 0 &&
           posix_spawnattr_setsigdefault(attributes, &all) == 0;
}

bool set_files(posix_spawn_file_actions_t *files, int output) {
    if (output != STDOUT_FILENO && posix_spawn_file_actions_adddup2(files, output, STDOUT_FILENO) != 0)
        return false;
    return posix_spawn_file_actions_addclosefrom_np(files, STDERR_FILENO + 1) == 0;
}

// Not system(): that ignores SIGINT and SIGQUIT in the whole process for as long as a worker's script runs.
pid_t start_shell(const char *command, int output) {
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
    char *const words[] = {shell.data(), option.data(), text.data(), nullptr};
    pid_t child = -1;
    if (!set_signals(&attributes) || !set_files(&files, output) ||
        posix_spawn(&child, "/bin/sh", &files, &attributes, words, environ) != 0)
        child = -1;
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    return child;
}

// The wait status, or -1.
int wait_for(pid_t child) {
    int status = -1;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return -1;
    return status;
}

// The wait status, or -1.
int run(const char *command, std::unique_lock<std::mutex> held = {}) {
    const pid_t child = start_shell(command, STDOUT_FILENO);
    if (held)
        held.unlock();
    return child < 0 ? -1 : wait_for(child);
}

// As much of a line as fits, its line feed included.
constexpr int longest_piece = 256;
struct Piece {
    std::array<char, longest_piece> text;
    std::size_t length;
};

// A zero byte is a byte of the line like any other: the fill tells where the text ends, not the first zero.
std::optional<Piece> next_piece(FILE *output) {
    Piece piece{};
    piece.text.fill('\n');
    if (std::fgets(piece.text.data(), longest_piece, output) == nullptr)
        return std::nullopt;
    piece.length = std::string_view(piece.text.data(), piece.text.size()).find_last_not_of('\n');
    return piece;
}

} // namespace

Status run_command(const char *who, const char *command, std::unique_lock<std::mutex> held) {
    log_debug("[ZAV-API] %s command=%s\n", who, command);
    const int rc = run(command, std::move(held));
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

int run_unchecked(const char *command) {
    const int rc = run(command);
    return rc == -1 ? -1 : WEXITSTATUS(rc);
}

Status read_command(const char *command, const std::function<void(std::string_view line)> &take_line) {
    std::array<int, 2> ends;
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return failure;
    Descriptor reading(ends[0]), writing(ends[1]);
    const pid_t child = start_shell(command, writing.get());
    (void)writing.close();
    if (child < 0)
        return failure;
    std::unique_ptr<FILE, int (*)(FILE *)> output(fdopen(reading.get(), "r"), std::fclose);
    if (output)
        (void)reading.release(); // the stream closes it
    else
        (void)reading.close(); // so that the command does not wait for a reader
    for (bool begins = true; output;) {
        const auto piece = next_piece(output.get());
        if (!piece)
            break;
        const std::string_view text(piece->text.data(), piece->length);
        if (begins)
            take_line(text.substr(0, text.find('\n')));
        begins = text.ends_with('\n');
    }
    const bool is_whole = output && std::ferror(output.get()) == 0;
    output.reset(); // before the wait: the command may still write
    return wait_for(child) == -1 || !is_whole ? failure : success;
}
