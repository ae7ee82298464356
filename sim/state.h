// The state directory of the simulated platform: its files, its log and its faults.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

// A thing that happens to the platform, as the log tells it: "set zvi00 TxPower=50". A fault is named
// after its first words: "set", "set.zvi00" or "set.zvi00.TxPower".
struct Event {
    std::string kind;
    std::string ifname;
    std::string word; // what is asked of the interface, without its value; may be empty
};

// False while ZAV_SIM_DIR is unset: then nothing is simulated.
bool active();

// Reads at most `limit` bytes of the named file of the state directory; nothing if it cannot be read.
std::optional<std::string> read_file(const std::string &name, std::size_t limit);

// Replaces the file as a whole, so that a reader sees the old text or the new one.
bool replace_file(const std::string &name, std::string_view text);

// The decimal number that the file holds; nothing if there is none.
std::optional<long> read_number(const std::string &name);

// Appends one line to the log, with everything but printable ASCII written as \xNN.
void log_line(std::string_view text);

// The text of the most specific fault file of the event: ".delay", ".fail" or ".answer".
std::optional<std::string> fault(const Event &event, std::string_view action);
std::optional<long> fault_number(const Event &event, std::string_view action);

// Waits as long as said, ten minutes at the most: such a wait is a fault's and not shortened.
void wait_ms(long milliseconds);

} // namespace sim
