#include "backend/channels.h"

#include "backend/channel_info.h"
#include "settings_files.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <thread>

static constexpr char info_file[] = "/etc/Wireless/ZAV750/ChannelInfo.txt";

// An /etc of the test's own: nothing in it but the channel-info file.
class ChannelInfo : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(unshare(CLONE_NEWNS), 0);
        ASSERT_EQ(mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr), 0);
        ASSERT_EQ(mount("tmpfs", "/etc", "tmpfs", 0, nullptr), 0);
        std::filesystem::create_directories("/etc/Wireless/ZAV750");
    }
    void TearDown() override { umount("/etc"); }
};

struct Outcome {
    Status status;
    std::string list, err;
    bool operator==(const Outcome &) const = default;
    friend std::ostream &operator<<(std::ostream &out, const Outcome &o) {
        return out << o.status << " [" << o.list << "] " << o.err;
    }
};

static Outcome search(const char *band, const SettingsFile &file) {
    testing::internal::CaptureStderr();
    const Status status = ZAV_ChannelsForBandSet(band, file);
    std::string list;
    if (nvram_get_whole(file, "OverwriteChannelList", &list) != success)
        list = "(none)";
    return {status, list, testing::internal::GetCapturedStderr()};
}

static Outcome searched(const std::string &text, const char *country = "US", const char *bandwidth = "0",
                        const char *band = "2.4", const SettingsFile &file = settings_24g) {
    write_file(info_file, text);
    const std::string lines =
        std::string("UseChannelInfo=1\nCountryCode=") + country + "\nHT_BW=" + bandwidth + "\n";
    start_with(lines, lines);
    return search(band, file);
}

static Outcome found(const char *list) { return {success, list, ""}; }

static Outcome wrong(int line, const std::string &message) {
    return {success, "",
            ": ZAV_ChannelsForBandSet:: " + std::string(info_file) + " is not valid: line #" +
                std::to_string(line) + " - " + message + "\n"};
}

TEST_F(ChannelInfo, GivesTheListOfCountryBandAndBandwidth) {
    const std::string text = "2.4G 20MHz: x(9)\n[DE]\n2.4G 20MHz: a(2)\n[US\n\n# 2.4G 20MHz: a(3)\n"
                             " \t2.4G 40MHz: u(1) l(5) u(5)\n2.4G 20MHz: a(1) b(6) c(11)\n"
                             "5.2G 20MHz:\ta(36)\t\tb(255) # c(300)\n5.2G 40 MHz : a(36) a(36)\n";
    EXPECT_EQ(searched(text), found("1,6,11,0"));
    EXPECT_EQ(searched(text, "US", "1"), found("1,5,5,0"));
    EXPECT_EQ(searched(text, "DE"), found("2,0"));
    EXPECT_EQ(lines_of(file_24g), "UseChannelInfo=1\nCountryCode=DE\nHT_BW=0\nOverwriteChannelList=2,0\n\n");
    ASSERT_EQ(nvram_set_str(settings_24g, "CountryCode", "US"), success);
    EXPECT_EQ(search("2.4", settings_24g), found("1,6,11,0"));
    EXPECT_EQ(lines_of(file_24g),
              "UseChannelInfo=1\nCountryCode=US\nHT_BW=0\nOverwriteChannelList=1,6,11,0\n\n");
    EXPECT_EQ(searched(text, "US", "0", "5.2", settings_5g), found("36,255,0"));
    EXPECT_EQ(searched(text, "US", "1", "5.2", settings_5g), found("36,36,0"));
    EXPECT_EQ(lines_of(file_24g), "UseChannelInfo=1\nCountryCode=US\nHT_BW=1\n") << "the other band";
    EXPECT_EQ(searched("[00]\n2.4G 20MHz: a(7)\n", ""), found("7,0"));
    EXPECT_EQ(searched("[USA]\n2.4G 20MHz:a(1)\n"), found("1,0")) << "compared over the code's length";
    EXPECT_EQ(searched("[US]\r\n2.4G 20MHz: a(1)\r\n"), found("1,0"));
    EXPECT_EQ(searched("[US]\n2.4G 20MHz: a(1)"), found("1,0")) << "no line feed at the end";
    EXPECT_EQ(searched("[US]\n2.4G 20MHz:"), found("0"));
    EXPECT_EQ(searched("[US]\n2.4\n2.4G\n2.4G MHz: a(1)\n2.4G 200: a(1)\n2.4G 20MHz: b(2)\n"), found("2,0"));
    const std::string long_line(70000, '.');
    EXPECT_EQ(searched(long_line + "[US]\n[US]" + long_line + "\n" + long_line +
                       "\n2.4G 20MHz: " + std::string(70000, ' ') + long_line + "(1)\n"),
              found("1,0"));
    EXPECT_EQ(searched(text), found("1,6,11,0"));
    const auto earlier = std::filesystem::last_write_time(file_24g) - std::chrono::hours(1);
    std::filesystem::last_write_time(file_24g, earlier);
    EXPECT_EQ(search("2.4", settings_24g), found("1,6,11,0"));
    EXPECT_EQ(std::filesystem::last_write_time(file_24g), earlier) << "a second run changes nothing";
}

TEST_F(ChannelInfo, ReportsWhatIsWrongByItsLine) {
    const auto channels = [](const std::string &tokens, const char *bandwidth = "0") {
        return searched("#\n[US]\n2.4G " + std::string(*bandwidth == '1' ? "40" : "20") + "MHz: " + tokens +
                            "\n[DE]\n",
                        "US", bandwidth);
    };
    EXPECT_EQ(searched("[US]\n5.2G 20MHz: a(1)\n \t[DE]\n2.4G 20MHz: a(1)\n"),
              wrong(3, "not found channel with specified settings. "));
    EXPECT_EQ(searched("[US]\n2.4G 20MHz a(1)\n"), wrong(2, "found channel string without parameters. "));
    EXPECT_EQ(channels("a(1) 6"), wrong(3, "found channel without name. "));
    EXPECT_EQ(channels("a(1"), wrong(3, "found channel without name. "));
    EXPECT_EQ(channels("a1)"), wrong(3, "found channel without name. "));
    EXPECT_EQ(channels("a)1("), wrong(3, "found channel without name. "));
    EXPECT_EQ(channels("a(1)b(2)"), wrong(3, "trailing symbols after channel name. "));
    EXPECT_EQ(channels("a(1) (6)"), wrong(3, "found name without channel. "));
    for (const char *value :
         {"a(0)", "a(256)", "a(-1)", "a()", "a(x)", "a(4294967297)", "a(99999999999999999999)"})
        EXPECT_EQ(channels(value), wrong(3, "invalid channel value ")) << value;
    EXPECT_EQ(channels("a(1) b(2) c(1)"), wrong(3, "reusing channel value with 20MHz bandwidth "));
    EXPECT_EQ(channels("a(1) b(2) c(1)", "1"), found("1,2,1,0"));
    EXPECT_EQ(searched("[DE]\n2.4G 20MHz: a(1)\n", "US"), wrong(2, "country code \"%s\" not found. US"));
    EXPECT_EQ(searched("[US]\n2.4G 40MHz: a(1)", "US"), wrong(2, "country code \"%s\" not found. US"));
    EXPECT_EQ(searched(" [US]\n", "US"), wrong(1, "country code \"%s\" not found. US"));
}

TEST_F(ChannelInfo, MissingFileAndKeysFailTheBand) {
    const std::string missing = "[ZAV-API] Error ZAV_ChannelsForBandSet " + std::string(info_file) +
                                " does not exits!!!!!!\n" + info_file + ": No such file or directory\n";
    start_with("UseChannelInfo=1\n", "UseChannelInfo=1\n");
    EXPECT_EQ(search("2.4", settings_24g), (Outcome{failure, "(none)", missing}));
    testing::internal::CaptureStderr();
    EXPECT_EQ(ZAV_ParseChannelInfo(), failure);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              missing +
                  "[ZAV-API] Error ZAV_ParseChannelInfo ERROR!!!Parsing channelinfo for 2.4G failed!!!\n");

    write_file(info_file, "[US]\n2.4G 20MHz: a(1)\n5.2G 20MHz: a(36)\n");
    start_with("UseChannelInfo=1\nHT_BW=0\n", "UseChannelInfo=1\nCountryCode=US\n");
    EXPECT_EQ(search("2.4", settings_24g), (Outcome{failure, "(none)", ""}));
    EXPECT_EQ(search("5.2", settings_5g), (Outcome{failure, "(none)", ""}));
    EXPECT_EQ(searched("[US]\n2.4G 20MHz: a(1)\n", "US", "2"),
              (Outcome{success, "1,0", "HT_BW NVRAM key is not valid: Invalid argument\n"}));

    write_file(info_file, "[US]\n2.4G 20MHz: a(1)\n5.2G 20MHz: a(36)\n");
    start_with("UseChannelInfo=1\nHT_BW=0\nCountryCode=US\n", "UseChannelInfo=1\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(ZAV_ParseChannelInfo(), failure);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[ZAV-API] Error ZAV_ParseChannelInfo ERROR!!!Parsing channelinfo for 5G failed!!!\n");
    EXPECT_EQ(lines_of(file_24g), "UseChannelInfo=1\nHT_BW=0\nCountryCode=US\nOverwriteChannelList=1,0\n\n");
}

TEST_F(ChannelInfo, GoesIntoBothBandsAndReplacesWhatIsThere) {
    write_file(info_file, "[US]\n2.4G 20MHz: a(07)\n5.2G 20MHz: a(36)\n");
    const std::string lines = "UseChannelInfo=1\nHT_BW=0\nCountryCode=US\n";
    start_with(lines + "OverwriteChannelList=1,0\n\nA=1\n", lines);
    EXPECT_EQ(ZAV_ParseChannelInfo(), success);
    EXPECT_EQ(lines_of(file_24g), lines + "OverwriteChannelList=07,0\n\nA=1\n");
    EXPECT_EQ(lines_of(file_5g), lines + "OverwriteChannelList=36,0\n\n");
    write_file("/tmp/nvram_set_lock", "");
    write_file(info_file, "[US]\n2.4G 20MHz: a(8)\n");
    testing::internal::CaptureStderr();
    EXPECT_EQ(ZAV_ChannelsForBandSet("2.4", settings_24g), failure) << "the settings are locked";
    std::filesystem::remove("/tmp/nvram_set_lock");
    write_file(info_file, "[US]\n2.4G 20MHz: a(b)\n");
    EXPECT_EQ(ZAV_ChannelsForBandSet("2.4", settings_24g), success);
    EXPECT_EQ(lines_of(file_24g), lines + "OverwriteChannelList=\nA=1\n") << "what was there is emptied";
    std::filesystem::remove(info_file);
    std::filesystem::create_directory(info_file);
    EXPECT_EQ(ZAV_ChannelsForBandSet("2.4", settings_24g), failure) << "it cannot be read";
    (void)testing::internal::GetCapturedStderr();
}

TEST(Channels, TheListIsRemovedWhereTheFileIsNotUsed) {
    for (const std::string use : {"", "UseChannelInfo=0\n"}) {
        start_with(use + "OverwriteChannelList=1,0\nA=1\nOverwriteChannelList=2,0\n",
                   "OverwriteChannelList=3,0\n");
        EXPECT_EQ(ZAV_ChannelsForBandSet("2.4", settings_24g), success);
        EXPECT_EQ(lines_of(file_24g) + lines_of(file_5g), use + "A=1\nOverwriteChannelList=3,0\n");
    }
    write_file("/tmp/nvram_set_lock", "");
    testing::internal::CaptureStderr();
    EXPECT_EQ(RemoveChannelInfoFromNvram(settings_5g), failure);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "[ZAV-API] Error RemoveChannelInfoFromNvram "
                                                      "ZAV750*.dat file is used now, strerror: Success\n");
    std::filesystem::remove("/tmp/nvram_set_lock");
    EXPECT_EQ(lines_of(file_5g), "OverwriteChannelList=3,0\n");
}

// A sed that takes its time between reading the file and replacing it, and tells how often it ran.
TEST(Channels, NoSettingIsLostWhileTheListIsRemoved) {
    std::filesystem::create_directory("/tmp/bin");
    write_file("/tmp/bin/sed", "#!/bin/sh\n/bin/sed \"$2\" \"$3\" >/tmp/without\necho >>/tmp/sed_began\n"
                               "sleep 0.3\nmv /tmp/without \"$3\"\nexit 4\n");
    std::filesystem::permissions("/tmp/bin/sed", std::filesystem::perms::all);
    const char *path = getenv("PATH");
    ASSERT_NE(path, nullptr);
    setenv("PATH", (std::string("/tmp/bin:") + path).c_str(), 1);
    start_with("OverwriteChannelList=1,0\nA=1\n", "");
    Status removed = failure;
    std::jthread remover([&] { removed = RemoveChannelInfoFromNvram(settings_24g); });
    while (!std::filesystem::exists("/tmp/sed_began"))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(nvram_set_str(settings_24g, "A", "2"), success);
    remover.join();
    EXPECT_EQ(removed, success) << "its exit status does not count";
    EXPECT_EQ(lines_of(file_24g), "A=2\n");
    EXPECT_EQ(RemoveChannelInfoFromNvram(settings_24g), success);
    EXPECT_EQ(read_file("/tmp/sed_began"), "\n") << "nothing to remove, nothing to run";
}

// No row shows it: the channel is stored already, and its side is not.
TEST(Channels, AChangedSideAloneIsAChange) {
    const std::string lines = "Channel=1\nHT_ExtChList=1;1;1;1;1;0;0;0;0;0;0;0;0\nHT_EXTCHA=";
    start_with(lines + "0\n", "");
    EXPECT_EQ(ZAV_SetChannel(1, 1), success);
    EXPECT_EQ(lines_of(file_24g), lines + "1\n");
}
