#include "backend/driver_record.h"

#include "backend/descriptor.h"
#include "backend/log.h"
#include "backend/replace_text.h"
#include "backend/result_file.h"
#include "backend/text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <string_view>

namespace {

// One form to write and to read by.
constexpr char head_form[] = "wlan-configd driver 1\nboot %s\n";
constexpr char state_form[] = "initialised %u\nloaded for %d\nBSSes %u %u\nVLAN file reset %u\ninit %u %d\n";
constexpr std::size_t longest_record = 256;

struct Paths {
    std::string record, next;
};

// Nothing without the variable.
const Paths *paths() {
    static const Paths both = [] {
        const std::string directory = first_directory("RUNTIME_DIRECTORY");
        return directory.empty() ? Paths{} : Paths{directory + "/driver", directory + "/driver.new"};
    }();
    return both.record.empty() ? nullptr : &both;
}

std::string head() {
    std::array<char, 64> boot{};
    std::array<char, longest_record> text{};
    if (read_first_line(__func__, "/proc/sys/kernel/random/boot_id", boot) != success)
        return "";
    std::snprintf(text.data(), text.size(), head_form, boot.data());
    return text.data();
}

std::string state_text(const KnownDriver &driver) {
    std::array<char, longest_record> text{};
    std::snprintf(text.data(), text.size(), state_form, driver.state == DriverState::initialised ? 1U : 0U,
                  static_cast<int>(driver.loaded_for), driver.counts.on_24g, driver.counts.on_5g,
                  driver.vlan_file_is_reset ? 1U : 0U, static_cast<unsigned>(driver.init.end),
                  static_cast<int>(driver.init.result));
    return text.data();
}

bool write_record(const Paths &at, std::string_view text) {
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    Descriptor file(open(at.next.c_str(), flags, S_IRUSR | S_IWUSR));
    return file.valid() && write_all(file.get(), text, 0) && file.close() &&
           std::rename(at.next.c_str(), at.record.c_str()) == 0;
}

// Whatever is no number of its kind is turned into one here, so that the text differs from that of the record
// that it makes.
std::optional<KnownDriver> parse_state(const std::string &text) {
    unsigned initialised = 0, on_24g = 0, on_5g = 0, vlan_file_is_reset = 0, end = 0;
    int loaded_for = 0, result = 0;
    if (std::sscanf(text.c_str(), state_form, &initialised, &loaded_for, &on_24g, &on_5g, &vlan_file_is_reset,
                    &end, &result) != 7)
        return std::nullopt;
    const KnownDriver driver{initialised != 0 ? DriverState::initialised : DriverState::loaded,
                             static_cast<Radios>(loaded_for),
                             {std::min(on_24g, most_bss_in_a_band), std::min(on_5g, most_bss_in_a_band)},
                             vlan_file_is_reset != 0,
                             {static_cast<InitEnd>(std::min(end, static_cast<unsigned>(InitEnd::reported))),
                              result == success ? success : failure}};
    return state_text(driver) == text ? std::optional(driver) : std::nullopt;
}

} // namespace

void write_driver_record(const KnownDriver &driver) {
    static std::string own_head; // once it could be read; the caller lets no other change in
    const Paths *at = paths();
    if (at == nullptr)
        return;
    if (own_head.empty())
        own_head = head();
    if (own_head.empty())
        errno = ENODATA; // the line before says why
    if (!own_head.empty() && write_record(*at, own_head + state_text(driver)))
        return;
    log_error("[ZAV-API] Error %s write failed %s (%d).\n", __func__, strerror(errno), errno);
    remove_driver_record();
}

void remove_driver_record() {
    const Paths *at = paths();
    if (at != nullptr && std::remove(at->record.c_str()) != 0 && errno != ENOENT)
        log_error("[ZAV-API] Error %s remove failed %s (%d).\n", __func__, strerror(errno), errno);
}

std::optional<KnownDriver> read_driver_record(const char **ret_oddity) {
    const Paths *at = paths();
    std::array<char, longest_record + 1> room{};
    if (at == nullptr)
        return std::nullopt;
    const Descriptor file(open(at->record.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.valid() && errno == ENOENT)
        return std::nullopt;
    const ssize_t length = file.valid() ? read(file.get(), room.data(), room.size()) : -1;
    if (length < 0) {
        *ret_oddity = "cannot be read";
        return std::nullopt;
    }
    const std::string text(room.data(), static_cast<std::size_t>(length)), own_head = head();
    if (own_head.empty() || !text.starts_with(own_head)) {
        *ret_oddity = "is of another boot or version";
        return std::nullopt;
    }
    const auto driver = parse_state(text.substr(own_head.size()));
    if (!driver)
        *ret_oddity = "is damaged";
    return driver;
}
