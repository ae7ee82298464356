#include "rpc/peers.h"
#include "rpc/reply_cache.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using namespace std::chrono_literals;

sockaddr_in peer(const char *address, std::uint16_t port) {
    sockaddr_in made{};
    made.sin_port = htons(port);
    inet_pton(AF_INET, address, &made.sin_addr);
    return made;
}

struct Replies : testing::Test {
    std::string find(const sockaddr_in &from, const std::string &request, ReplyCache::Waited later) {
        const auto found = cache->find(from, request, start + later);
        return {found.begin(), found.end()};
    }
    void keep(const std::string &request, const std::string &reply) {
        cache->keep(client, request, reply, start);
    }
    const sockaddr_in client = peer("10.0.0.1", 700);
    const ReplyCache::Waited start = 1h;
    const std::unique_ptr<ReplyCache> cache = std::make_unique<ReplyCache>();
};

TEST_F(Replies, AreForTheSameRequestOfTheSamePeerAndForTenSeconds) {
    keep("request", "reply");
    EXPECT_EQ(find(client, "request", 9999ms), "reply");
    EXPECT_EQ(find(client, "request", 10s), "");
    for (const char *other : {"requesT", "reques", "requests", ""})
        EXPECT_EQ(find(client, other, 0s), "");
    for (const auto &other : {peer("10.0.0.1", 701), peer("10.0.0.2", 700)})
        EXPECT_EQ(find(other, "request", 0s), "");
}

TEST_F(Replies, AreTheLast64AndNoLongerThanTheirRoom) {
    for (int i = 0; i <= 64; ++i)
        keep(std::to_string(i), "reply " + std::to_string(i));
    EXPECT_EQ(find(client, "0", 0s) + find(client, "1", 0s) + find(client, "64", 0s), "reply 1reply 64");
    const std::string longest(1024, 'x'), longest_reply(512, 'y');
    keep(longest, longest_reply);
    keep(longest + 'x', "reply");
    keep("request", longest_reply + 'y');
    EXPECT_EQ(find(client, longest, 0s), longest_reply);
    EXPECT_EQ(find(client, longest + 'x', 0s) + find(client, "request", 0s), "");
}

TEST(ListOfPeers, LetsInAddressesAndNetworks) {
    Peers peers, all;
    std::string_view wrong;
    ASSERT_TRUE(parse_peers("10.1.2.3,127.0.0.1/32,172.16.9.9/12,192.168.4.0/22", &peers, &wrong));
    for (const char *address : {"10.1.2.3", "127.0.0.1", "172.16.0.0", "172.31.255.255", "192.168.7.255"})
        EXPECT_TRUE(may_ask(peers, peer(address, 0).sin_addr)) << address;
    for (const char *address :
         {"10.1.2.2", "10.1.2.4", "127.0.0.2", "172.15.255.255", "172.32.0.0", "192.168.8.0"})
        EXPECT_FALSE(may_ask(peers, peer(address, 0).sin_addr)) << address;
    ASSERT_TRUE(parse_peers("0.0.0.0/0", &all, &wrong));
    for (const Peers &each : {all, Peers{}})
        EXPECT_TRUE(may_ask(each, peer("203.0.113.1", 0).sin_addr));
}

TEST(ListOfPeers, NamesTheWordThatIsNone) {
    for (const std::string_view list :
         {"", "10.0.0.1,", "10.0.0.1, 10.0.0.2", "10.0.0.2,10.0.0.1/33", "10.0.0.1/", "10.0.0.1/8x",
          "10.0.0.1/-1", "10.0.1", "::1", "gateway", "255.255.255.2555"}) {
        Peers peers;
        std::string_view wrong = "none";
        EXPECT_FALSE(parse_peers(list, &peers, &wrong)) << list;
        EXPECT_EQ(wrong, list.substr(list.rfind(',') + 1));
    }
}

} // namespace
