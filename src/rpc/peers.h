#pragma once

#include <cstdint>
#include <netinet/in.h>
#include <string_view>
#include <vector>

// Who may ask: IPv4 addresses and networks, or everyone.

struct Network {
    std::uint32_t address, mask; // in host order
};

using Peers = std::vector<Network>; // none: everyone

// Reads "192.168.1.2,10.0.0.0/8". False for a word that is neither, which `*ret_wrong` then shows.
bool parse_peers(std::string_view list, Peers *ret_peers, std::string_view *ret_wrong);

bool may_ask(const Peers &peers, in_addr address);
