// The settings files through kills, failing calls and power cuts: settings_drill KILLS BLOCKS. Each set is
// met at each of its system calls, and so is the recovery after it; a daemon that sets is killed KILLS times;
// and the daemon is started on each state of a disk that up to BLOCKS blocks, written in any order, can have
// left.

#include "../unit/settings_files.h"
#include "backend/config_store.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <iostream>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

static const std::string steps[] = {"33", "1", "2", "", std::string(900, 'a'), "22", std::string(5000, 'b')};
struct Call {
    char kind; // open, read (e), write, truncate, sync, reserve
    bool of_journal;
    std::size_t step, at;
    std::string bytes;
};
static std::vector<Call> calls;
static std::size_t step, hit = SIZE_MAX; // the call that something happens to
static char what;                        // the end Before it, in its Middle, After it; it Fails, is Short;
                                         // it is short or fails, and so does Every later write of settings
static bool reserves = true;
static ino_t inode;

static long at_call(char kind, int fd, off_t at, std::string_view bytes, auto run) {
    const bool is_hit = calls.size() == hit,
               is_half = is_hit && bytes.size() > 1 && what != 'B' && what != 'A';
    struct stat found {};
    fstat(fd, &found);
    calls.push_back({kind, found.st_ino != inode, step, std::size_t(at), std::string(bytes)});
    errno = EIO;
    if ((is_hit && (what == 'F' || (what == 'E' && !is_half))) ||
        (what == 'E' && calls.size() > hit + 1 && kind == 'w' && found.st_ino == inode))
        return -1;
    const long result = is_hit && what == 'B' ? 0 : run(bytes.size() / (is_half ? 2 : 1));
    return is_hit && what != 'S' && what != 'E' ? (_exit(0), 0) : result;
}
// The names with underscores are those that the C library checks lengths by.
extern "C" int open(const char *path, int flags, ...) {
    va_list values;
    va_start(values, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(values, mode_t) : 0;
    va_end(values);
    return int(at_call('o', -1, 0, "", [=](auto) { return open64(path, flags, mode); }));
}
extern "C" ssize_t pread(int fd, void *text, std::size_t length, off_t at) {
    const std::size_t most =
        at == 0 && length == settings_file_limit ? 7 : length; // no more than the lines of a short value
    return at_call('e', fd, 0, "", [=](auto) { return pread64(fd, text, std::min(length, most), at); });
}
extern "C" int __open_2(const char *path, int flags) { return open(path, flags); }
extern "C" ssize_t __pread_chk(int fd, void *text, std::size_t length, off_t at, std::size_t) {
    return pread(fd, text, length, at);
}
extern "C" ssize_t pwrite(int fd, const void *text, std::size_t length, off_t at) {
    return at_call('w', fd, at, {static_cast<const char *>(text), length},
                   [=](std::size_t some) { return pwrite64(fd, text, some, at); });
}
extern "C" int ftruncate(int fd, off_t length) noexcept {
    return int(at_call('t', fd, length, "", [=](auto) { return ftruncate64(fd, length); }));
}
extern "C" int fsync(int fd) {
    return int(at_call('s', fd, 0, "", [](auto) { return 0; }));
}
extern "C" int lock_nothing(int, int) noexcept __asm__("flock"); // the parent has the journal open, too
extern "C" int lock_nothing(int, int) noexcept { return 0; }
extern "C" int fallocate(int fd, int mode, off_t at, off_t length) {
    return int(at_call('r', fd, 0, "", [=](auto) {
        errno = EOPNOTSUPP;
        return reserves ? fallocate64(fd, mode, at, length) : -1L;
    }));
}

static constexpr char journal_file[] = "/tmp/settings/settings-journal";
static std::string text_of(const std::string &value) {
    return "#\nA=" + value + "\nP=" + std::string(4000, 'p') + "\nB=" + value + "\nQ=1\n";
}
static Status set(std::size_t to) {
    return nvram_set_pair(settings_24g, {"A", steps[to].c_str()}, {"B", steps[to].c_str()});
}
static void begin(const std::string &text, const std::string &journal) {
    calls.clear(); // or each child frees them all
    write_file(file_24g, text);
    write_file(journal_file, journal);
}
static std::size_t tried, damaged, told;
static bool check_one_of(std::initializer_list<std::string> texts) {
    std::string found = read_file(file_24g);
    while (std::getenv("STATE_DIRECTORY") == nullptr && found.ends_with("\n\n"))
        found.pop_back(); // a kill may leave blank lines
    ++tried;
    const bool is_damaged = std::find(texts.begin(), texts.end(), found) == texts.end();
    damaged += is_damaged;
    return !is_damaged;
}
static int run_child(unsigned microseconds, auto child) {
    int status = 0;
    const pid_t pid = fork();
    if (pid == 0)
        _exit(child());
    if (microseconds > 0 && usleep(microseconds) == 0)
        kill(pid, SIGKILL);
    waitpid(pid, &status, 0);
    return WEXITSTATUS(status);
}

// Each call of a start with this journal fails, or the start ends there; then another start.
static void meet_each_call_of_recovery(const std::string &text, const std::string &journal,
                                       std::initializer_list<std::string> texts) {
    for (const char event : {'F', 'E', what == 'F' ? 'M' : what}) {
        bool met = true;
        for (std::size_t at = 0; met; ++at) {
            begin(text, journal);
            const auto start = [=] {
                calls.clear();
                what = event;
                hit = at;
                open_settings_journal();
                return calls.size() > at ? 1 : 2;
            };
            met = run_child(0, start) < 2;
            open_settings_journal();
            check_one_of(texts);
        }
    }
}

static bool is_whole(const std::string &journal) {
    std::uint32_t lengths[3] = {}; // of what is the same, the old text and the new one
    return journal.starts_with("cfgjlne1") &&
           journal.copy(reinterpret_cast<char *>(lengths), sizeof lengths, 28) == sizeof lengths &&
           journal.size() == 40 + lengths[1] + lengths[2] - 2 * lengths[0];
}

// The error lines of a start.
static std::size_t lines_of_start() {
    const char path[] = "/tmp/settings/err";
    const int shown = dup(STDERR_FILENO), caught = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(caught, STDERR_FILENO);
    open_settings_journal();
    dup2(shown, STDERR_FILENO);
    close(shown);
    close(caught);
    const std::string said = read_file(path);
    return std::size_t(std::count(said.begin(), said.end(), '\n'));
}

static std::size_t stride = 1; // 3: a third of the changes
static void meet_each_call(char event) {
    what = event;
    for (std::size_t i = 2; i < 2 * std::size(steps); i += stride) {
        const std::string before = text_of(steps[i / 2 - 1]), after = text_of(steps[i / 2]);
        const std::string of_another = std::string(before).replace(before.find("B="), 1, "C");
        reserves = i % 2 == 0;
        int end = 0; // 0 in the set, 1 it succeeded, 2 it failed; 3 it met nothing
        for (std::size_t at = 0; end < 3; ++at) {
            begin(before, "");
            end = run_child(0, [=] {
                open_settings_journal();
                calls.clear();
                hit = at;
                const Status result = set(i / 2);
                return calls.size() <= hit && result == success ? 3 : result == success ? 1 : 2;
            });
            const std::string left = read_file(file_24g), journal = read_file(journal_file),
                              away = "/tmp/away";
            std::filesystem::rename(file_24g, away); // not mounted yet
            open_settings_journal();
            write_file(file_5g, "#\nA=1\n");
            damaged += nvram_set_str(settings_5g, "A", "2") != success;
            std::filesystem::rename(away, file_24g);
            open_settings_journal();
            const std::string &first = end == 0 || end == 2 ? before : after,
                              &second = end == 2 ? before : after;
            check_one_of({first, second});
            if (!journal.empty())
                meet_each_call_of_recovery(left, journal, {first, second});
            begin(of_another, journal);
            const std::size_t lines = lines_of_start();
            damaged += lines != is_whole(journal) || lines_of_start() > 0; // the second start knows nothing
            told += lines;
            check_one_of({of_another});
        }
    }
}

static void kill_often(int kills) {
    std::mt19937 random(1);
    begin(text_of(steps[0]), "");
    for (int i = 0; i < kills; ++i) {
        run_child(1 + static_cast<unsigned>(random() % 2000), [] {
            open_settings_journal();
            for (std::size_t to = 0;; ++to)
                (void)set(to % std::size(steps));
            return 0;
        });
        open_settings_journal();
        if (!check_one_of({text_of(steps[0]), text_of(steps[1]), text_of(steps[2]), text_of(steps[3]),
                           text_of(steps[4]), text_of(steps[5]), text_of(steps[6])}))
            begin(text_of(steps[0]), "");
    }
}

struct Disk {
    std::string synced;
    std::vector<Call> under_way;

    void put(const Call &call, std::size_t block) {
        if (call.kind == 's')
            *this = {after(SIZE_MAX), {}};
        for (std::size_t from = 0, some = 0; from < call.bytes.size(); from += some) {
            some = block - (call.at + from) % block;
            under_way.push_back({'w', false, 0, call.at + from, call.bytes.substr(from, some)});
        }
        if (call.kind == 't' || (call.kind == 'w' && call.at + call.bytes.size() > after(SIZE_MAX).size()))
            under_way.push_back({'t', false, 0, call.at + call.bytes.size(), ""});
    }
    std::string after(std::size_t which) const {
        std::size_t length = synced.size();
        std::string text = synced + std::string(40000, '\0');
        for (std::size_t i = 0; i < under_way.size(); ++i)
            if (const Call &call = under_way[i]; which != SIZE_MAX && (which >> i & 1) == 0)
                continue;
            else if (call.kind == 't')
                length = call.at;
            else
                text.replace(call.at, call.bytes.size(), call.bytes);
        return text.substr(0, length);
    }
};

static void cut_power(std::size_t most_blocks) {
    begin(text_of(steps[0]), "");
    open_settings_journal();
    calls.clear();
    for (step = 1; step < std::size(steps); ++step)
        damaged += set(step) != success;
    const std::vector<Call> made = calls;
    for (std::size_t cut = 1; cut <= made.size(); ++cut) {
        const std::size_t now = made[cut - 1].step;
        const bool is_answered = cut == made.size() || made[cut].step != now;
        std::size_t blocks = most_blocks + 1;
        Disk settings, journal;
        for (std::size_t size = 512; blocks > most_blocks && size < 65536;
             size *= 2) { // so that all orders can be tried
            settings = {text_of(steps[0]), {}}, journal = {};
            for (std::size_t i = 0; i < cut; ++i)
                (made[i].of_journal ? journal : settings).put(made[i], size);
            blocks = settings.under_way.size() + journal.under_way.size();
        }
        for (std::size_t which = 0; which < std::size_t{1} << std::min(blocks, most_blocks); ++which) {
            begin(settings.after(which), journal.after(which >> settings.under_way.size()));
            open_settings_journal();
            check_one_of({text_of(steps[is_answered ? now : now - 1]), text_of(steps[now])});
        }
    }
}

// Without the journal, a kill in the middle of a write may do damage.
static bool holds(const std::string &drill, bool may_damage, bool must_tell = false) {
    std::cout << drill << ": " << damaged << " damaged of " << tried << ", " << told
              << " rewritten files told" << std::endl;
    return std::exchange(tried, 0) > 0 && (std::exchange(damaged, 0) == 0 || may_damage) &&
           (std::exchange(told, 0) > 0) == must_tell;
}

// KILLS CUTS [STRIDE]
int main(int argc, char **argv) {
    if (argc > 3)
        stride = std::strtoul(argv[3], nullptr, 10);
    bool all_hold = true;
    struct stat found {};
    begin("", "");
    stat(file_24g, &found);
    inode = found.st_ino;
    for (const std::string journal : {"", " with the journal"}) {
        if (!journal.empty())
            setenv("STATE_DIRECTORY", "/tmp/settings:/tmp/other", 1);
        for (const char event : {'B', 'M', 'A', 'F', 'S'}) {
            meet_each_call(event);
            all_hold &= holds(std::string("each call ") + event + journal, journal.empty() && event == 'M',
                              !journal.empty() && event != 'S');
        }
        kill_often(std::atoi(argv[1]) / (journal.empty() ? 10 : 1));
        all_hold &= holds("kills" + journal, journal.empty());
    }
    cut_power(std::strtoul(argv[2], nullptr, 10));
    all_hold &= holds("power cuts", false);
    stat(file_24g, &found);
    return all_hold && found.st_ino == inode ? 0 : 1;
}
