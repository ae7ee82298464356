#include "backend/config_store.h"
#include "backend/result_file.h"
#include "backend/unreached.h"
#include "settings_files.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

// How large each write found the file.
static std::vector<std::size_t> sizes_found;
static std::size_t refused_length = SIZE_MAX;
extern "C" ssize_t pwrite(int fd, const void *text, std::size_t length, off_t at) {
    struct stat found {};
    fstat(fd, &found);
    sizes_found.push_back(static_cast<std::size_t>(found.st_size));
    errno = EIO;
    if (length == refused_length)
        return -1;
    return pwrite64(fd, text, length, at);
}

static std::string get(const SettingsFile &file, const std::string &key, std::size_t room = 16384) {
    std::string value(16384, '~');
    const Status result = nvram_get_str(file, key, std::span(value).first(room));
    return result == success ? value.c_str() : "(none)";
}

// Nothing may be written without a change, and the file stays the same file.
static void check_set(const std::string &text, const std::string &key, const std::string &value,
                      Status status, const std::string &expected) {
    SCOPED_TRACE(text.substr(0, 30) + " | " + key + " = " + value.substr(0, 30));
    write_file(file_24g, text);
    const auto earlier = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(file_24g, earlier);
    std::ifstream opened_before(file_24g);
    sizes_found.clear();
    EXPECT_EQ(nvram_set_str(settings_24g, key, value.c_str()), status);
    EXPECT_EQ(std::filesystem::last_write_time(file_24g) == earlier, status != success);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(opened_before), {}), expected);
}

// The many forms of a file are compared with a model in ../fuzz/settings.cpp; these are the corner stones.
TEST(Store, SetsOneLineAndKeepsTheRest) {
    const std::string much(3000, 'o');
    check_set("A=0\nAA=1\nA=2\nA=3\n", "A", "12", success, "A=0\nAA=1\nA=12\nA=3\n");
    check_set("#\nA=1\n\nB=2\n", "A", "12", success, "#\nA=12\n\nB=2\n");
    check_set("A=1\nB=1", "A", "1", success, "A=1\nB=1\nA=1\n");
    check_set("#\nA=" + much + "\nB=2\n", "A", much + "2", success, "#\nA=" + much + "2\nB=2\n");
    check_set("#\nA=" + much + "\nB=2\n", "A", much, unchanged, "#\nA=" + much + "\nB=2\n");
    EXPECT_EQ(get(settings_24g, "A", 5), "oooo");
    EXPECT_EQ(get(settings_24g, "A", 0), std::string(16384, '~'));
}

TEST(Store, RefusesWhatTheFileCannotHoldAndAnyWriteUnderTheLock) {
    const std::string plain = "#\nA=1\n", full = plain + std::string(16384 - 6, 'x');
    const std::string nearly_full = plain + std::string(16384 - 6 - 4, 'x') + "\n"; // room for two more
    for (const char *key : {"", "A\nB", "A=", "a_key_of_58_characters____________________________________"})
        check_set(plain, key, "1", failure, plain);
    check_set(plain, "A", "2\n", failure, plain);
    check_set(full, "A", "", failure, full);
    check_set(nearly_full, "A", "123", success, "#\nA=123" + nearly_full.substr(5));
    check_set(nearly_full, "A", "1234", failure, nearly_full);
    check_set(nearly_full, "B", "", failure, nearly_full);
    write_file("/tmp/nvram_set_lock", "");
    errno = EIO; // of some earlier call
    testing::internal::CaptureStderr();
    check_set("#\nA=1\n", "A", "2", failure, "#\nA=1\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[ZAV-API] Error nvram_set_str ZAV750*.dat file is used now, strerror: Success\n");
    std::filesystem::remove("/tmp/nvram_set_lock");
}

// Each thread writes one letter in every length, and may find only the letters of its own file.
TEST(Store, NeverMixesTheTextsOfTwoFiles) {
    std::atomic<int> wrong = 0;
    const auto work = [&](const SettingsFile &file, char letter, const char *letters) {
        for (std::size_t i = 0; i < 400; ++i) {
            wrong += nvram_set_str(file, "A", std::string(1 + i % 97, letter).c_str()) == failure;
            wrong += get(file, "A").find_first_not_of(letters) != std::string::npos;
        }
    };
    write_file(file_24g, "#24\nA=a\n");
    write_file(file_5g, "#5\nA=x\n");
    std::vector<std::jthread> threads;
    for (const char letter : {'a', 'b', 'x', 'y'})
        threads.emplace_back(work, letter < 'x' ? settings_24g : settings_5g, letter,
                             letter < 'x' ? "ab" : "xy");
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

// Disks that are full behind 8192 bytes; the second cannot reserve room in advance.
TEST(Store, KeepsTheOldTextOnAFullDisk) {
    const auto text_of = [](std::size_t size) { return "#\nA=1\nP=" + std::string(size - 9, 'p') + "\n"; };
    const std::string longer(900, 'v');
    std::signal(SIGXFSZ, SIG_IGN);
    for (const auto &[type, longest_file] : {std::pair("tmpfs", 1U << 20), std::pair("ramfs", 8192U)}) {
        ASSERT_EQ(mount(type, "/tmp/settings", type, 0, "size=8k"), 0);
        const rlimit usual{RLIM_INFINITY, RLIM_INFINITY}, small{longest_file, RLIM_INFINITY};
        for (const auto &[size, added] : {std::pair(7000U, 3000U), {8192U, 1U}}) {
            SCOPED_TRACE(type + std::to_string(size));
            write_file(file_24g, text_of(size));
            sizes_found.clear();
            setrlimit(RLIMIT_FSIZE, &small);
            EXPECT_EQ(nvram_set_str(settings_24g, "A", std::string(added + 1, 'v').c_str()), failure);
            setrlimit(RLIMIT_FSIZE, &usual);
            EXPECT_EQ(read_file(file_24g), text_of(size));
            EXPECT_EQ(sizes_found.empty(), longest_file > 8192) << "room is found before the file is touched";
        }
        check_set(text_of(7000), "A", longer, success, "#\nA=" + longer + text_of(7000).substr(5));
        umount("/tmp/settings");
    }
}

static std::string said_at_start() {
    testing::internal::CaptureStderr();
    open_settings_journal();
    return testing::internal::GetCapturedStderr();
}

// Another daemon has the journal, until it ends; a mark that cannot be written brings no old change back.
TEST(Store, HasTheJournalAloneAndForgetsAChangeThatWasMade) {
    setenv("STATE_DIRECTORY", "/tmp/settings", 1);
    const int other = open("/tmp/settings/settings-journal", O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
    EXPECT_EQ(said_at_start(), "[ZAV-API] Error open_settings_journal no journal in /tmp/settings: "
                               "Resource temporarily unavailable\n");
    close(other);
    EXPECT_EQ(said_at_start() + said_at_start(), "");
    refused_length = 8; // the mark's
    check_set("#\nA=1\nB=1\n", "A", "2", success, "#\nA=2\nB=1\n");
    check_set("#\nA=1\nB=1\n", "B", "2", success, "#\nA=1\nB=2\n");
    refused_length = SIZE_MAX;
}

TEST(ResultFile, GivesTheFirstLineAndIsClosed) {
    unsigned number = 99;
    std::array<char, 8> line{};
    EXPECT_EQ(get_int_value("/tmp/settings/missing", &number), failure); // its line may open what it goes to
    const auto open_files = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const auto before = open_files();
    for (const char *text : {"\n5\n", "usage: zv_host.sh\n", ""}) {
        write_file("/tmp/settings/result", text);
        EXPECT_EQ(get_int_value("/tmp/settings/result", &number), failure) << text;
        EXPECT_EQ(get_str_value("/tmp/settings/result", line), text[0] == '\n' ? success : failure) << text;
    }
    write_file("/tmp/settings/result", "4294967295 men\n13\n");
    EXPECT_EQ(get_int_value("/tmp/settings/result", &number), success);
    EXPECT_EQ(number, 4294967295);
    EXPECT_EQ(get_str_value("/tmp/settings/result", line), success);
    EXPECT_STREQ(line.data(), "4294967");
    EXPECT_EQ(open_files(), before) << "a file was left open";
}
