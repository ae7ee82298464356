#include "service/gateway.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <rpc/rpc.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

Process::Process(const std::vector<std::string> &command, const std::vector<std::string> &environment,
                 const std::string &out, const std::string &err) {
    for (const std::string &file : {out, err})
        if (std::filesystem::is_regular_file(file)) // not /dev/null
            std::filesystem::remove(file);
    id_ = fork();
    if (id_ != 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC); // it starts with what it opens itself
    dup2(open(out.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644), STDOUT_FILENO);
    dup2(open(err.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644), STDERR_FILENO);
    std::vector<char *> words(command.size() + 1, nullptr);
    std::transform(command.begin(), command.end(), words.begin(),
                   [](const std::string &word) { return const_cast<char *>(word.c_str()); });
    for (const auto &variable : environment)
        putenv(const_cast<char *>(variable.c_str()));
    execv(words[0], words.data());
    _exit(127);
}

Process::~Process() {
    if (id_ > 0 && kill(id_, SIGKILL) == 0)
        waitpid(id_, nullptr, 0);
}

std::optional<int> Process::ended(std::chrono::milliseconds patience) {
    int status = 0;
    for (; patience > 0ms; patience -= 10ms) {
        if (waitpid(id_, &status, WNOHANG) == id_) {
            id_ = -1;
            return status;
        }
        std::this_thread::sleep_for(10ms);
    }
    return std::nullopt;
}

Outcome run(const std::string &program, const std::vector<std::string> &arguments,
            const std::vector<std::string> &environment) {
    const std::string out = "/tmp/run.out", err = "/tmp/run.err";
    Process process(join({BINARY_DIR "/bin/" + program}, arguments), environment, out, err);
    const auto status = process.ended(30s);
    return {status && WIFEXITED(*status) ? WEXITSTATUS(*status) : -1, read_file(out), read_file(err)};
}

std::vector<std::string> join(std::vector<std::string> words, const std::vector<std::string> &more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

std::string word(std::uint32_t value) {
    const std::uint32_t wire = htonl(value);
    return {reinterpret_cast<const char *>(&wire), sizeof wire};
}

std::string xdr_text(std::string_view bytes) {
    std::string text = word(static_cast<std::uint32_t>(bytes.size())).append(bytes);
    return text.append((4 - bytes.size() % 4) % 4, '\0');
}

std::string data_reply(int code, const std::vector<std::uint32_t> &numbers, std::string_view data) {
    std::string reply =
        word(static_cast<std::uint32_t>(code)) + word(static_cast<std::uint32_t>(numbers.size()));
    for (const std::uint32_t number : numbers)
        reply += word(number);
    return reply + xdr_text(data);
}

long Process::threads_asleep() const {
    const std::filesystem::directory_iterator threads("/proc/" + std::to_string(id_) + "/task");
    return std::count_if(begin(threads), end(threads), [](const auto &thread) {
        return read_file(thread.path() / "stat").find(") S ") != std::string::npos;
    });
}

bool await(const std::function<bool()> &come_true, std::chrono::seconds patience) {
    using Clock = std::chrono::steady_clock;
    for (const auto end = Clock::now() + patience; Clock::now() < end; std::this_thread::sleep_for(5ms))
        if (come_true())
            return true;
    return false;
}

namespace {

std::vector<std::string> daemon_command(const std::vector<std::string> &arguments, const std::string &start) {
    std::vector<std::string> command;
    if (!start.empty())
        command = {"/bin/sh", "-c", start, "sh"};
    command.push_back(BINARY_DIR "/bin/wlan-configd");
    return join(command, arguments);
}

std::vector<std::string> gateway_environment(const std::vector<std::string> &changed) {
    if (std::system(SOURCE_DIR "/sim/setup /tmp/gateway; rpcinfo -d 538054928 1 2>/dev/null || :") != 0)
        throw std::runtime_error("no gateway");
    return join({"LD_PRELOAD=" BINARY_DIR "/lib/libzav_sim.so", "ZAV_SIM_DIR=/tmp/gateway",
                 "zav_cfg_dir=/tmp/gateway/settings", "zav_install_dir=" SOURCE_DIR "/sim/host",
                 std::string("PATH=" SOURCE_DIR "/sim/bin:") + std::getenv("PATH")},
                changed);
}

std::uint32_t word_at(std::string_view bytes, std::size_t offset) {
    std::uint32_t value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return ntohl(value);
}

// The port that the portmapper knows; 0 when the process ends instead.
unsigned find_port(pid_t process) {
    sockaddr_in portmapper{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
    unsigned port = 0;
    await([&] {
        port = pmap_getport(&portmapper, 0x20121110, 1, IPPROTO_UDP);
        return port != 0 || kill(process, 0) != 0;
    });
    return port;
}

} // namespace

Gateway::Gateway(const std::vector<std::string> &arguments, const std::vector<std::string> &environment,
                 const std::string &start, const std::string &out)
    : command_(daemon_command(arguments, start)), environment_(gateway_environment(environment)),
      daemon_(std::in_place, command_, environment_, out, path("err")), port_(find_port(daemon_->id())),
      client_(port_) {}

void Gateway::restart() {
    daemon_.emplace(command_, environment_, path("out"), path("err"));
    ::await([&] { return answers(); });
}

std::optional<std::string> Gateway::settled(std::uint32_t procedure, std::string_view arguments,
                                            std::string_view passing) {
    std::optional<std::string> answer;
    await([&] { return (answer = call(procedure, arguments)) != passing; });
    return answer;
}

long Gateway::count(const std::string &file, std::string_view text) const {
    const std::string content = read_file(path(file));
    long found = 0;
    for (std::size_t at = 0; (at = content.find(text, at)) != std::string::npos; at += text.size())
        ++found;
    return found;
}

Client::Client(unsigned port, const char *server, const char *own)
    : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    const int room = 4 << 20; // for the replies to a burst
    setsockopt(socket_, SOL_SOCKET, SO_RCVBUFFORCE, &room, sizeof room);
    sockaddr_in from{}, to{};
    from.sin_family = to.sin_family = AF_INET;
    to.sin_port = htons(static_cast<std::uint16_t>(port));
    if (inet_pton(AF_INET, own, &from.sin_addr) != 1 || inet_pton(AF_INET, server, &to.sin_addr) != 1 ||
        bind(socket_, reinterpret_cast<sockaddr *>(&from), sizeof from) != 0 ||
        connect(socket_, reinterpret_cast<sockaddr *>(&to), sizeof to) != 0)
        throw std::runtime_error("connect");
}

Client::~Client() { close(socket_); }

std::string call_header(std::uint32_t procedure, std::uint32_t program, std::uint32_t version) {
    static std::atomic<std::uint32_t> transaction = 1;
    std::string header;
    for (const std::uint32_t value : {++transaction, 0U, 2U, program, version, procedure, 0U, 0U, 0U, 0U})
        header += word(value);
    return header;
}

std::optional<std::string> Client::exchange(std::string_view datagram, int patience_ms) {
    pollfd ready{socket_, POLLIN, 0};
    std::array<char, 65536> reply;
    if (send(socket_, datagram.data(), datagram.size(), 0) < 0)
        return std::nullopt;
    while (poll(&ready, 1, patience_ms) == 1) {
        // A refusal that was seen may be another thread's by now.
        const ssize_t length = recv(socket_, reply.data(), reply.size(), MSG_DONTWAIT);
        if (length < 0)
            return std::nullopt;
        if (length >= 20 && std::memcmp(reply.data(), datagram.data(), 4) == 0)
            return std::string(reply.data(), static_cast<std::size_t>(length));
    }
    return std::nullopt;
}

std::optional<std::string> Client::call(std::uint32_t procedure, std::string_view arguments,
                                        std::uint32_t *status, int patience_ms) {
    const auto reply = exchange(call_header(procedure).append(arguments), patience_ms);
    if (!reply || reply->size() < 24)
        return std::nullopt;
    if (status != nullptr)
        *status = word_at(*reply, 20);
    return reply->substr(24);
}

int Client::code(std::uint32_t procedure, std::string_view arguments) {
    constexpr int no_reply = -100;
    const auto reply = call(procedure, arguments);
    return reply && reply->size() >= sizeof(int) ? static_cast<int>(word_at(*reply, 0)) : no_reply;
}
