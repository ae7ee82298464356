#include "rpc/peers.h"

#include "backend/text.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>

namespace {

constexpr unsigned address_bits = 32;

bool parse_length(std::string_view text, unsigned *ret_length) {
    const char *end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, *ret_length);
    return error == std::errc{} && stopped == end && *ret_length <= address_bits;
}

bool parse_network(std::string_view word, Network *ret_network) {
    const std::size_t slash = std::min(word.find('/'), word.size());
    unsigned length = address_bits;
    if (slash < word.size() && !parse_length(word.substr(slash + 1), &length))
        return false;
    std::array<char, INET_ADDRSTRLEN + 1>
        text; // one more than any address, so that none is made of a longer text
    in_addr address{};
    copy_text(text, word.substr(0, slash));
    if (inet_pton(AF_INET, text.data(), &address) != 1)
        return false;
    ret_network->mask = length == 0 ? 0 : ~std::uint32_t{0} << (address_bits - length);
    ret_network->address = ntohl(address.s_addr) & ret_network->mask;
    return true;
}

} // namespace

bool parse_peers(std::string_view list, Peers *ret_peers, std::string_view *ret_wrong) {
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        const std::string_view word = list.substr(begin, end - begin);
        Network network{};
        if (!parse_network(word, &network)) {
            *ret_wrong = word;
            return false;
        }
        ret_peers->push_back(network);
        begin = end + 1;
    }
    return true;
}

bool may_ask(const Peers &peers, in_addr address) {
    const std::uint32_t asking = ntohl(address.s_addr);
    return peers.empty() || std::any_of(peers.begin(), peers.end(), [asking](const Network &network) {
               return (asking & network.mask) == network.address;
           });
}
