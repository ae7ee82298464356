#include "backend/config_store.h"
#include "backend/result_file.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace {

// The store asks for its directory once, so it stands before the first test.
[[maybe_unused]] const bool directory_made =
    setenv("zav_cfg_dir", "/tmp/store", 1) == 0 && std::filesystem::create_directory("/tmp/store");
constexpr char file_24g[] = "/tmp/store/ZAV75024g.dat", file_5g[] = "/tmp/store/ZAV750.dat";

std::string read_file(const char *path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write_file(const char *path, const std::string &text) { std::ofstream(path, std::ios::binary) << text; }

std::string get(const char *ifname, const std::string &key, std::size_t room = 16384) {
    std::string value(16384, '~');
    const Status result = nvram_get_str(ifname, key.c_str(), std::span(value).first(room));
    return result == success ? value.c_str() : "(none)";
}

TEST(StoreDeathTest, OnlyTheVlanFileIsFoundWithoutADirectory) {
    const auto look = [] {
        unsetenv("zav_cfg_dir");
        std::exit(get("zv00", "A") == "(none)" && get("vlan", "A") == "1" ? 0 : 1);
    };
    write_file(file_5g, "#\nA=5\n");
    write_file("/tmp/ZAV750vlan.dat", "#\nA=1\n");
    EXPECT_EXIT(look(), testing::ExitedWithCode(0), "");
}

TEST(Store, GetsAWholeKeyFromAfterTheHeader) {
    const std::string longest(57, 'k'), much(16384, 'x');
    const std::array<std::string, 3> rows[] = {
        {"SSID1=abc\n", "SSID1", "(none)"},
        {"#\nSSID10=x\nXSSID1=y\nSSID1=z\nSSID1=0\n", "SSID1", "z"},
        {"#\nA=b=c;d ", "A", "b=c;d "},
        {"#\n" + longest + "=1\n", longest, "1"},
        {"#\n" + longest + "k=1\n", longest + "k", "(none)"},
        {"#\nA=" + much, "A", much.substr(4)},
    };
    for (const auto &[text, key, value] : rows) {
        write_file(file_24g, text);
        EXPECT_EQ(get("zvi00", key), value) << text.substr(0, 40) << key;
    }
    write_file(file_24g, "#\nA=abcdef\n");
    EXPECT_EQ(get("zvi00", "A", 4), "abc");
    EXPECT_EQ(get("zvi00", "A", 0), std::string(16384, '~'));
}

// Nothing may be written without a change, and the file stays the same file.
void check_set(const std::string &text, const std::string &key, const std::string &value, Status status,
               const std::string &expected) {
    SCOPED_TRACE(text.substr(0, 30) + " | " + key + " = " + value.substr(0, 30));
    write_file(file_24g, text);
    const timespec long_ago[] = {{1000, 0}, {1000, 0}};
    utimensat(AT_FDCWD, file_24g, long_ago, 0);
    struct stat before {
    }, after{};
    stat(file_24g, &before);
    EXPECT_EQ(nvram_set_str("zvi00", key.c_str(), value.c_str()), status);
    stat(file_24g, &after);
    EXPECT_EQ(read_file(file_24g), expected);
    EXPECT_EQ(std::tuple(after.st_ino, after.st_mtim.tv_sec == 1000),
              std::tuple(before.st_ino, status != success));
}

TEST(Store, SetsOneLineAndKeepsTheRest) {
    const std::string much(3000, 'o');
    check_set("#\nA=1\nB=2\nA=3\n", "A", "12345", success, "#\nA=12345\nB=2\nA=3\n");
    check_set("#\nA=12345\nB=2\n", "A", "", success, "#\nA=\nB=2\n");
    check_set("#\nSSID10=x\nSSID1=y\n", "SSID1", "z", success, "#\nSSID10=x\nSSID1=z\n");
    check_set("A=1\nB=1", "A", "1", success, "A=1\nB=1\nA=1\n");
    check_set("#\nA=" + much + "1\nB=2\n", "A", much + "2", success, "#\nA=" + much + "2\nB=2\n");
    check_set("#\nA=" + much + "\nB=2\n", "A", much, unchanged, "#\nA=" + much + "\nB=2\n");
}

TEST(Store, RefusesWhatTheFileCannotHold) {
    const std::string plain = "#\nA=1\n", full = plain + std::string(16384 - 6, 'x');
    const std::string room_for_9 = plain + std::string(16383 - 9 - 7, 'x') + "\n";
    for (const std::string &key :
         {std::string(), std::string("A\nB"), std::string("A="), std::string(58, 'k')})
        check_set(plain, key, "1", failure, plain);
    check_set(plain, "A", "2\n", failure, plain);
    check_set(full, "A", "", failure, full);
    check_set(room_for_9, "A", "1234567890", success, "#\nA=1234567890" + room_for_9.substr(5));
    check_set(room_for_9, "A", "12345678901", failure, room_for_9);
    check_set(room_for_9, "K", "1234567", failure, room_for_9);
}

TEST(Store, WritesNothingUnderTheLockFile) {
    write_file("/tmp/nvram_set_lock", "");
    errno = EIO; // of some earlier call
    testing::internal::CaptureStderr();
    check_set("#\nA=1\n", "A", "2", failure, "#\nA=1\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[ZAV-API] Error nvram_set_str ZAV750*.dat file is used now, strerror: Success\n");
    EXPECT_EQ(get("zvi00", "A"), "1");
    std::filesystem::remove("/tmp/nvram_set_lock");
}

// Each thread writes one letter, in every length, and may read only its own file's letters.
TEST(Store, NeverMixesTheTextsOfTwoFiles) {
    std::atomic<int> wrong = 0;
    const auto work = [&](const char *ifname, char letter, const std::string &letters) {
        for (std::size_t i = 0; i < 400; ++i) {
            wrong += nvram_set_str(ifname, "A", std::string(1 + i % 97, letter).c_str()) == failure;
            const std::string found = get(ifname, "A");
            wrong +=
                letters.find(found[0]) == letters.npos || found.find_first_not_of(found[0]) != found.npos;
        }
    };
    write_file(file_24g, "#24\nA=a\n");
    write_file(file_5g, "#5\nA=x\n");
    std::thread threads[] = {std::thread(work, "zvi00", 'a', "ab"), std::thread(work, "zvi01", 'b', "ab"),
                             std::thread(work, "zv00", 'x', "xy"), std::thread(work, "zv01", 'y', "xy")};
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(read_file(file_24g).substr(0, 6) + read_file(file_5g).substr(0, 5), "#24\nA=#5\nA=");
}

// Disks that are full behind 8192 bytes; the second cannot reserve room in advance.
TEST(Store, KeepsTheOldTextOnAFullDisk) {
    const std::string text = "#\nA=1\nP=" + std::string(7000, 'p') + "\n", fits(900, 'v');
    std::signal(SIGXFSZ, SIG_IGN);
    for (const auto &[type, longest_file] : {std::pair("tmpfs", 1U << 20), std::pair("ramfs", 8192U)}) {
        if (mount(type, "/tmp/store", type, 0, "size=8k") != 0)
            GTEST_SKIP() << "no right to mount";
        rlimit usual{};
        getrlimit(RLIMIT_FSIZE, &usual);
        const rlimit small{longest_file, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        check_set(text, "A", std::string(3000, 'v'), failure, text);
        setrlimit(RLIMIT_FSIZE, &usual);
        check_set(text, "A", fits, success, "#\nA=" + fits + text.substr(5));
        umount("/tmp/store");
    }
}

TEST(ResultFile, GivesTheFirstLineAndIsClosed) {
    const auto results = [](const char *text) {
        write_file("/tmp/store/result", text);
        unsigned number = 99;
        std::array<char, 11> line{};
        const Status number_status = get_int_value("/tmp/store/result", &number);
        return std::tuple(number_status, number, get_str_value("/tmp/store/result", line),
                          std::string(line.data()));
    };
    const auto descriptors = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const auto before = descriptors();
    EXPECT_EQ(results("4294967295\n"), std::tuple(success, 4294967295, success, "4294967295"));
    EXPECT_EQ(results("12 men waiting\n13\n"), std::tuple(success, 12, success, "12 men wai"));
    EXPECT_EQ(results("\n5\n"), std::tuple(failure, 99, success, ""));
    EXPECT_EQ(results(""), std::tuple(failure, 99, failure, ""));
    EXPECT_EQ(std::get<2>(results("usage: zv_host.sh\n")), failure);
    EXPECT_EQ(std::get<0>(results("usage: zv_host.sh\n")), failure);
    EXPECT_EQ(descriptors(), before);
    unsigned value = 0;
    EXPECT_EQ(get_int_value("/tmp/store/missing", &value), failure);
}

} // namespace
