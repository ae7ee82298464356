#pragma once

#include "client/error.h"
#include "client/values.h"
#include "rpc/protocol.h"

#include <cstdint>
#include <functional>
#include <netinet/in.h>
#include <optional>
#include <span>
#include <string>
#include <vector>

constexpr double usual_patience = 5; // seconds

// Where the daemon is. `address` is found at the first call and kept.
struct Connection {
    std::string host = "127.0.0.1";
    std::uint16_t port = 0;           // 0: the portmapper knows
    std::optional<double> timeout{};  // seconds that a call may take, if the user has said
    double patience = usual_patience; // otherwise
    std::function<bool()> goes_on{};  // asked during a call, some times a second; false ends it
    sockaddr_in address{};
};

constexpr int code_done = 0, code_unchanged = 2, code_in_progress = 3;

struct Answer {
    int code = 0;                        // below 0: failure, and there is no value
    std::vector<std::int64_t> numbers{}; // as many as the result of that kind has
    std::string text{};                  // any bytes
};

// Finds the address, if that has not been done. The calls do so, too.
Error find_daemon(Connection &connection);

// The parts of that, for who wants to know which fails. Port 0: the portmapper knows no daemon.
Error resolve(const Connection &connection, sockaddr_in &ret_address);
Error ask_portmapper(const Connection &connection, sockaddr_in &ret_address);
// The call that does nothing, to the address that was found.
Error call_nothing(const Connection &connection);

// One call, and what came of it.
struct Question {
    const Procedure *procedure;
    Values arguments{};
    Answer answer{};
    Error error{};
};

// Calls all of them, some on the way at a time. A lost datagram is sent again within the time-out where that
// does no harm: the daemon would do an action twice. When the portmapper then names another port, where a
// restarted daemon has not seen them, calls without a reply are made there, but for actions, which may have
// been done.
void call(Connection &connection, std::span<Question> questions);
Error call(Connection &connection, const Procedure &procedure, const Values &arguments, Answer &ret_answer);
