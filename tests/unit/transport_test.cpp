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

class Replies : public testing::Test {
protected:
    std::string find(const sockaddr_in &from, const std::string &request, ReplyCache::Clock::duration later) {
        const auto found = cache->find(from, request, start + later);
        return {found.begin(), found.end()};
    }
    void keep(const std::string &request, const std::string &reply) {
        cache->keep(client, request, reply, start);
    }
    const sockaddr_in client = peer("10.0.0.1", 700);
    const ReplyCache::Clock::time_point start = ReplyCache::Clock::now();
    const std::unique_ptr<ReplyCache> cache = std::make_unique<ReplyCache>();
};

TEST_F(Replies, AreForTheSameRequestOfTheSamePeerAndForTenSeconds) {
    keep("request", "reply");
    EXPECT_EQ(find(client, "request", 9999ms), "reply");
    EXPECT_EQ(find(client, "request", 10s), "");
    EXPECT_EQ(find(client, "requesT", 0s), "");
    EXPECT_EQ(find(client, "reques", 0s), "");
    EXPECT_EQ(find(peer("10.0.0.1", 701), "request", 0s), "");
    EXPECT_EQ(find(peer("10.0.0.2", 700), "request", 0s), "");
    EXPECT_EQ(find(client, "", 0s), "");
}

TEST_F(Replies, AreTheLast64AndNoLongerThanTheirRoom) {
    for (int i = 0; i <= 64; ++i)
        keep("request " + std::to_string(i), "reply " + std::to_string(i));
    EXPECT_EQ(find(client, "request 0", 0s), "");
    EXPECT_EQ(find(client, "request 1", 0s), "reply 1");
    EXPECT_EQ(find(client, "request 64", 0s), "reply 64");
    const std::string longest(1024, 'x'), longest_reply(512, 'y');
    keep(longest, longest_reply);
    keep(longest + 'x', "reply");
    keep("request", longest_reply + 'y');
    EXPECT_EQ(find(client, longest, 0s), longest_reply);
    EXPECT_EQ(find(client, longest + 'x', 0s) + find(client, "request", 0s), "");
}

struct Asking {
    const char *list, *address;
    bool may;
};
constexpr Asking asking[] = {
    {"10.1.2.3", "10.1.2.3", true},
    {"10.1.2.3", "10.1.2.4", false},
    {"10.1.2.3,127.0.0.1", "127.0.0.1", true},
    {"10.1.2.3/8", "10.255.0.1", true},
    {"10.1.2.3/8", "11.1.2.3", false},
    {"192.168.4.0/22", "192.168.7.255", true},
    {"192.168.4.0/22", "192.168.8.0", false},
    {"10.1.2.3/32", "10.1.2.2", false},
    {"0.0.0.0/0", "203.0.113.1", true},
};

TEST(ListOfPeers, LetsInAddressesAndNetworks) {
    for (const Asking &row : asking) {
        Peers peers;
        std::string_view wrong;
        ASSERT_TRUE(parse_peers(row.list, &peers, &wrong)) << row.list;
        EXPECT_EQ(may_ask(peers, peer(row.address, 0).sin_addr), row.may) << row.list << ' ' << row.address;
    }
    EXPECT_TRUE(may_ask({}, peer("203.0.113.1", 0).sin_addr));
}

TEST(ListOfPeers, NamesTheWordThatIsNone) {
    constexpr std::pair<const char *, const char *> rows[] = {
        {"", ""},
        {"10.0.0.1,", ""},
        {"10.0.0.1, 10.0.0.2", " 10.0.0.2"},
        {"10.0.0.1/33,10.0.0.2", "10.0.0.1/33"},
        {"10.0.0.1/", "10.0.0.1/"},
        {"10.0.0.1/8x", "10.0.0.1/8x"},
        {"10.0.0.1/-1", "10.0.0.1/-1"},
        {"10.0.1", "10.0.1"},
        {"::1", "::1"},
        {"gateway", "gateway"},
        {"255.255.255.2555", "255.255.255.2555"},
    };
    for (const auto &[list, word] : rows) {
        Peers peers;
        std::string_view wrong = "none";
        EXPECT_FALSE(parse_peers(list, &peers, &wrong)) << list;
        EXPECT_EQ(wrong, word) << list;
    }
}

} // namespace
