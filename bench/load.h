#pragma once

#include <array>
#include <cstddef>
#include <sys/types.h>
#include <vector>

// The load: calls as bytes on a connected UDP socket, without the RPC library, so that the client's own time
// is small and the same for every server.

// A `resize` sets values of alternating lengths, so that the file grows and shrinks in turn.
enum class Case { null, get, set, resize };
constexpr std::size_t case_count = 4;
constexpr std::array<const char *, case_count> case_names{"null", "get", "set", "resize"};

constexpr int most_in_flight = 16;

struct Server {
    const char *name;
    int socket;
    pid_t pid;
};

struct Samples {
    std::vector<double> microseconds; // from sending a call to its reply
    double seconds = 0;               // the whole time
};

// Ends the process when the system refuses.
int connect_to(unsigned port);

// Whether a null call is answered within a fifth of a millisecond.
bool is_served(Server &server);

// The reply in words, as received. Ends the process when there is none.
std::vector<unsigned> call_once(Server &server, Case which, unsigned xid);

// Adds to the samples. `calls` is even: every second set puts the first value back. Ends the process when a
// call fails or stays without reply, for then nothing measured means anything.
void call(Server &server, Case which, int calls, int in_flight, Samples *samples);
