#pragma once

#include "files.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

// A process that ends with the object.
class Process {
public:
    // `environment` is put before the command's own; output goes to the files, afresh.
    Process(const std::vector<std::string> &command, const std::vector<std::string> &environment,
            const std::string &out, const std::string &err);
    ~Process();
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    pid_t id() const { return id_; }
    // The wait status, once it has ended.
    std::optional<int> ended(std::chrono::milliseconds patience = std::chrono::seconds(10));
    // How many of its threads wait for something.
    long threads_asleep() const;

private:
    pid_t id_;
};

struct Outcome {
    int status; // -1 where it did not end by itself in time
    std::string out, err;
};

// Runs one of the build's programs to its end.
Outcome run(const std::string &program, const std::vector<std::string> &arguments,
            const std::vector<std::string> &environment = {});

// One behind the other.
std::vector<std::string> join(std::vector<std::string> words, const std::vector<std::string> &more);

// XDR by hand: what the tests send and expect is made without the code under test.
std::string word(std::uint32_t value);
std::string xdr_text(std::string_view bytes);
std::string data_reply(int code, const std::vector<std::uint32_t> &numbers, std::string_view data);

// Whether it comes true in time.
bool await(const std::function<bool()> &come_true, std::chrono::seconds patience = std::chrono::seconds(60));

// A socket of its own; several at once are several clients.
class Client {
public:
    explicit Client(unsigned port, const char *server = "127.0.0.1", const char *own = "0.0.0.0");
    ~Client();
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    // The body of the reply (behind the accept status, which `status` gets), or nothing in time.
    std::optional<std::string> call(std::uint32_t procedure, std::string_view arguments,
                                    std::uint32_t *status = nullptr, int patience_ms = 5000);
    // Sends a datagram as it is; the whole reply, or nothing in time.
    std::optional<std::string> exchange(std::string_view datagram, int patience_ms);
    // The first word of that body.
    int code(std::uint32_t procedure, std::string_view arguments = "");
    bool answers() { return call(0, "").has_value(); }

private:
    int socket_;
};

// A simulated gateway in /tmp/gateway with the real daemon on it, and a first client.
class Gateway {
public:
    static constexpr char directory[] = "/tmp/gateway";

    // `environment` goes on top of the gateway's own. `start` is what a shell does instead of only starting
    // the daemon; then there is no simulated driver.
    explicit Gateway(const std::vector<std::string> &arguments = {"127.0.0.1"},
                     const std::vector<std::string> &environment = {}, const std::string &start = "",
                     const std::string &out = "/tmp/gateway/out");

    std::optional<std::string> call(std::uint32_t procedure, std::string_view arguments,
                                    std::uint32_t *status = nullptr, int patience_ms = 5000) {
        return client_.call(procedure, arguments, status, patience_ms);
    }
    std::optional<std::string> exchange(std::string_view datagram, int patience_ms) {
        return client_.exchange(datagram, patience_ms);
    }
    bool answers() { return client_.answers(); }
    // What the answer becomes; in the end, whatever it is then.
    std::optional<std::string> settled(std::uint32_t procedure, std::string_view arguments,
                                       std::string_view passing);
    // How often the file has the text.
    long count(const std::string &file, std::string_view text) const;
    void fault(const std::string &name, std::string_view content) {
        write_file(path("faults/" + name), content);
    }
    void repair(const std::string &name) { std::filesystem::remove(path("faults/" + name)); }

    Process &daemon() { return *daemon_; }
    // Kills the daemon, and starts it again on the gateway as it is; its port must be fixed.
    void restart();
    std::string path(const std::string &name) const { return std::string(directory) + "/" + name; }
    unsigned port() const { return port_; }

private:
    std::vector<std::string> command_, environment_;
    std::optional<Process> daemon_;
    unsigned port_;
    Client client_;
};

// The call header with the next transaction number.
std::string call_header(std::uint32_t procedure, std::uint32_t program = 0x20121110,
                        std::uint32_t version = 1);
