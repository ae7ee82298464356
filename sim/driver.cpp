// The simulated Wi-Fi driver, preloaded into the daemon: it answers the requests that go to interfaces
// named zv... and atm... from the state directory, and shortens the daemon's long sleeps. All other calls
// pass on to the system.

#include "records.h"
#include "state.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <mutex>
#include <utility>

#include <dlfcn.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <linux/wireless.h>

namespace sim {
namespace {

// A request says how long its command is, never how large its buffer; what is written there is bounded by
// what each answer's format can need.
constexpr std::size_t longest_command = 2048;
constexpr std::size_t show_room = 1000;
constexpr std::size_t device_room = 500;
constexpr std::size_t file_limit = 65536;

constexpr Layout station_table{9104, 140, 4};
constexpr Layout survey_block{7809, 122, 1};

struct Call {
    Event event;
    std::string command;
    std::string band; // "24g" or "5g": the directory of the radio's state
    void *request;    // struct iwreq, or struct ifreq for the interface's flags

    iwreq *wireless() const { return static_cast<iwreq *>(request); }
};

int (*next_clock_nanosleep())(clockid_t, int, const timespec *, timespec *) {
    using Function = int (*)(clockid_t, int, const timespec *, timespec *);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "clock_nanosleep"));
    return next;
}

// Hands the bytes to the caller; returns an error number, as every function that serves a request.
int give(const Call &call, std::string_view bytes, std::size_t room) {
    iw_point &data = call.wireless()->u.data;
    if (data.pointer == nullptr) {
        return EFAULT;
    }
    const std::size_t length = std::min(bytes.size(), room);
    std::memcpy(data.pointer, bytes.data(), length);
    data.length = static_cast<__u16>(length);
    return 0;
}

int give_text(const Call &call, const std::string &file, std::size_t room) {
    if (const auto raw = fault(call.event, "answer")) {
        return give(call, *raw, room);
    }
    auto text = read_file(file + '.' + call.event.ifname, room);
    if (!text) {
        text = read_file(file, room);
    }
    if (!text) {
        return EINVAL;
    }
    if (text->ends_with('\n')) {
        text->pop_back();
    }
    text->resize(std::min(text->size(), room - 1));
    text->push_back('\0');
    return give(call, *text, room);
}

int give_record(const Call &call, const std::string &file, const Layout &layout) {
    if (const auto raw = fault(call.event, "answer")) {
        return give(call, *raw, layout.size);
    }
    const std::string name = call.band + '/' + file;
    const auto text = read_file(name, file_limit);
    return text ? give(call, build_answer(name, *text, layout), layout.size) : EIO;
}

// What a command changes in the WPS state that the query WscInfo tells.
struct WpsEffect {
    std::string_view command;
    std::string_view field;
    std::string_view value; // empty: the value of the command
};

constexpr std::array<WpsEffect, 10> wps_effects{{
    {"WscConfMode", "WscConfMode", ""},
    {"WscConfigMethods", "WscConfigMethods", ""},
    {"WscMode", "WscMode", ""},
    {"WscVendorPinCode", "WscPinCode(Enrollee)", ""},
    {"WscGenPinCode", "WscPinCode(Enrollee)", "48563710"},
    {"WscSetupLock", "WpsSetupLock", ""},
    {"WscGetConf", "WscState", "7"},
    {"WscStop", "WscState", "0"},
    {"WscStop", "WscStatus", "1"},
    {"reset", "WscConfStatus", "1"},
}};

void change_wps(const Call &call, std::string_view value) {
    static std::mutex wps_mutex;
    const std::lock_guard lock(wps_mutex);
    const std::string file = call.band + "/show/WscInfo";
    for (const WpsEffect &effect : wps_effects) {
        if (effect.command != call.event.word) {
            continue;
        }
        std::string text = '\n' + read_file(file, show_room).value_or("");
        const std::string key = '\n' + std::string(effect.field) + '=';
        const std::size_t at = text.find(key);
        if (at == std::string::npos) {
            continue;
        }
        const std::size_t begin = at + key.size();
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        text.replace(begin, end - begin, effect.value.empty() ? value : effect.value);
        replace_file(file, std::string_view(text).substr(1));
    }
}

int serve_set(Call &call) {
    const std::size_t mark = call.command.find('=');
    change_wps(call, mark == std::string::npos ? "" : std::string_view(call.command).substr(mark + 1));
    return 0;
}

int serve_show(Call &call) {
    if (call.command == "fairness.-F") {
        return give_record(call, "airtime", {5120});
    }
    if (call.command.starts_with("fairness.")) {
        return 0; // a weight: its buffer ends with the command, so nothing may be written there
    }
    if (call.command.find('/') != std::string::npos) {
        return EINVAL;
    }
    return give_text(call, call.band + "/show/" + call.command, show_room);
}

int serve_private(Call &call) {
    if (call.command == "sched.-D") {
        return give_record(call, "queues", {4096});
    }
    if (call.command.starts_with("ratestd.-D.")) {
        return give_record(call, "ratedata", {976});
    }
    if (call.command == "RadioStat.-o") {
        return give_record(call, "radiostat", {344});
    }
    return call.command.starts_with("RadioStat.-") ? 0 : EINVAL;
}

int serve_stations(Call &call) {
    return call.command == "get_mac_table" ? give_record(call, "stations", station_table) : EINVAL;
}

int serve_survey(Call &call) { return give_record(call, "neighbours", survey_block); }

int serve_device(Call &call) { return give_text(call, call.band + "/device", device_room); }

int serve_reset(Call &call) {
    change_wps(call, "");
    return 0;
}

int serve_flags(Call &call) {
    const auto state = read_file("interfaces/" + call.event.ifname, 16);
    const bool up = state && state->starts_with("up");
    const unsigned flags = IFF_BROADCAST | IFF_MULTICAST | (up ? unsigned{IFF_UP} | IFF_RUNNING : 0U);
    static_cast<ifreq *>(call.request)->ifr_flags = static_cast<short>(flags);
    return 0;
}

int serve_rate(Call &call) {
    iw_param &rate = call.wireless()->u.bitrate;
    rate = {};
    rate.value = static_cast<__s32>(read_number(call.band + "/rate").value_or(0));
    return 0;
}

struct Request {
    unsigned long number;
    std::string_view kind;
    std::string_view word; // of the event, where the request carries no command of its own
    bool has_command;
    int (*serve)(Call &call);
};

constexpr std::array<Request, 9> requests{{
    {SIOCIWFIRSTPRIV + 2, "set", "", true, serve_set},
    {SIOCIWFIRSTPRIV + 6, "priv", "", true, serve_private},
    {SIOCIWFIRSTPRIV + 12, "survey", "", false, serve_survey},
    {SIOCIWFIRSTPRIV + 15, "stations", "", true, serve_stations},
    {SIOCIWFIRSTPRIV + 17, "show", "", true, serve_show},
    {SIOCIWFIRSTPRIV + 18, "wps", "device", false, serve_device},
    {SIOCIWFIRSTPRIV + 25, "wps", "reset", false, serve_reset},
    {SIOCGIFFLAGS, "flags", "", false, serve_flags},
    {SIOCGIWRATE, "rate", "", false, serve_rate},
}};

// The interface name of the request, if it is one of ours. It need not be terminated.
std::string our_interface(const void *request) {
    const auto *name = static_cast<const char *>(request);
    std::string ifname(name, strnlen(name, IFNAMSIZ));
    return ifname.starts_with("zv") || ifname.starts_with("atm") ? ifname : std::string();
}

int read_command(Call &call) {
    const iw_point &data = call.wireless()->u.data;
    if (data.pointer == nullptr) {
        return EFAULT;
    }
    if (data.length == 0) {
        return EINVAL;
    }
    const auto *text = static_cast<const char *>(data.pointer);
    const std::size_t length = strnlen(text, data.length);
    if (length > longest_command) {
        return E2BIG;
    }
    call.command.assign(text, length);
    call.event.word = call.command.substr(0, call.command.find('='));
    return 0;
}

// The air-time interfaces are there as long as their radio's first interface is.
bool exists(const Call &call) {
    const std::string &name = call.event.ifname;
    if (name.find('/') != std::string::npos) {
        return false;
    }
    const std::string main = call.band == "24g" ? "zvi00" : "zv00";
    return read_file("interfaces/" + (name.starts_with("atm") ? main : name), 1).has_value();
}

int serve(const Request &row, int fd, Call &call) {
    int type = 0;
    socklen_t length = sizeof type;
    if (getsockopt(fd, SOL_SOCKET, SO_TYPE, &type, &length) != 0) {
        return errno;
    }
    if (const int error = row.has_command ? read_command(call) : 0; error != 0) {
        return error;
    }
    std::string line = call.event.kind + ' ' + call.event.ifname;
    const std::string &text = row.has_command ? call.command : call.event.word;
    if (!text.empty()) {
        line += ' ' + text;
    }
    log_line(line);
    wait_ms(fault_number(call.event, "delay").value_or(0));
    if (fault(call.event, "fail")) {
        return static_cast<int>(std::clamp(fault_number(call.event, "fail").value_or(EIO), 1L, 4095L));
    }
    return exists(call) ? row.serve(call) : ENODEV;
}

timespec shortened(const timespec &asked) {
    if (!active() || asked.tv_sec < 1) {
        return asked;
    }
    constexpr std::time_t rounds = 10; // what the daemon looks at from time to time is no event
    if (asked.tv_sec < rounds)
        log_line("sleep " + std::to_string(asked.tv_sec));
    const auto limit = read_number("sleep_ms");
    if (!limit || *limit < 0 || *limit / 1000 >= asked.tv_sec) {
        return asked;
    }
    return {*limit / 1000, (*limit % 1000) * 1000000};
}

// The scripts that the daemon starts are real programs with real clocks: the preload ends here.
[[gnu::constructor]] void keep_from_children() { unsetenv("LD_PRELOAD"); }

} // namespace

void wait_ms(long milliseconds) {
    const long bounded = std::clamp(milliseconds, 0L, 600000L);
    timespec left{bounded / 1000, (bounded % 1000) * 1000000};
    while (next_clock_nanosleep()(CLOCK_MONOTONIC, 0, &left, &left) == EINTR) {
    }
}

} // namespace sim

extern "C" {

[[gnu::visibility("default")]] int ioctl(int fd, unsigned long number, ...) noexcept {
    va_list arguments;
    va_start(arguments, number);
    void *request = va_arg(arguments, void *);
    va_end(arguments);
    const auto row = std::find_if(sim::requests.begin(), sim::requests.end(),
                                  [number](const sim::Request &each) { return each.number == number; });
    if (row == sim::requests.end() || request == nullptr || !sim::active()) {
        return static_cast<int>(syscall(SYS_ioctl, fd, number, request));
    }
    const std::string ifname = sim::our_interface(request);
    if (ifname.empty()) {
        return static_cast<int>(syscall(SYS_ioctl, fd, number, request));
    }
    const bool is_24g = ifname.starts_with("zvi") || ifname.starts_with("atm24");
    sim::Event event{std::string(row->kind), ifname, std::string(row->word)};
    sim::Call call{std::move(event), "", is_24g ? "24g" : "5g", request};
    const int error = sim::serve(*row, fd, call);
    if (error != 0) {
        errno = error;
    }
    return error == 0 ? 0 : -1;
}

[[gnu::visibility("default")]] int clock_nanosleep(clockid_t clock, int flags, const timespec *asked,
                                                   timespec *left) {
    if (asked == nullptr || flags != 0) {
        return sim::next_clock_nanosleep()(clock, flags, asked, left);
    }
    const timespec time = sim::shortened(*asked);
    return sim::next_clock_nanosleep()(clock, 0, &time, left);
}

[[gnu::visibility("default")]] int nanosleep(const timespec *asked, timespec *left) {
    const int error = clock_nanosleep(CLOCK_REALTIME, 0, asked, left);
    if (error != 0) {
        errno = error;
    }
    return error == 0 ? 0 : -1;
}

[[gnu::visibility("default")]] unsigned int sleep(unsigned int seconds) {
    const timespec asked{static_cast<time_t>(seconds), 0};
    timespec left{};
    const int error = clock_nanosleep(CLOCK_REALTIME, 0, &asked, &left);
    return error == 0 ? 0U : static_cast<unsigned int>(left.tv_sec);
}

} // extern "C"
