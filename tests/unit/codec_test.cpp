#include "backend/interfaces.h"
#include "rpc/named_codecs.h"
#include "rpc/protocol.h"
#include "rpc/service.h"

#include <gtest/gtest.h>

static std::string words(std::initializer_list<unsigned> values) {
    std::string bytes;
    for (const unsigned value : values)
        for (const unsigned shift : {24U, 16U, 8U, 0U})
            bytes += static_cast<char>(value >> shift);
    return bytes;
}

// A stream at an odd address lends no buffer for a run of words, so offsets 0 and 2 take the two paths.
template <class Record>
static bool decode(std::string bytes, Record &record, std::size_t offset = 0) {
    bytes.insert(0, offset, '~');
    XDR x;
    xdrmem_create(&x, bytes.data() + offset, static_cast<unsigned>(bytes.size() - offset), XDR_DECODE);
    return item(&x, record);
}

// Decoded the one way and encoded the other.
template <class Record>
static std::string recoded(const std::string &bytes, std::size_t offset = 0) {
    Record record{};
    Message whole = message(record);
    std::string again(40000, '~');
    XDR x;
    xdrmem_create(&x, again.data() + 2 - offset, 39000, XDR_ENCODE);
    const bool good = decode(bytes, record, offset) && item(&x, record);
    xdr_free(code_message, &whole);
    return good ? again.substr(2 - offset, XDR_GETPOS(&x)) : "failed";
}

TEST(Codec, WritesItemsInTheirOneForm) {
    EXPECT_EQ(recoded<wlan_set_enable_1_argument>(words({~0U, 5})), words({~0U, 1}));
    EXPECT_EQ(recoded<wlan_associate_vlan_1_argument>(words({1, 0x61ffffff, 0xffff})),
              words({1, 0x61000000, 0xffff}));
    EXPECT_EQ(recoded<wlan_associate_vlan_1_argument>(words({1, 0x61000000, 0x10000})), "failed");
    EXPECT_EQ(recoded<AirTimeStats>(words({1, 2, ~0U, 3})), words({1, 2, ~0U, 3}));
    const std::string longest = words({~0U, 1, 9, 8256}) + std::string(8256, 'd');
    EXPECT_EQ(recoded<wlan_config_result_data_t>(longest), longest);
    EXPECT_EQ(recoded<wlan_config_result_data_t>(words({0, 0, 8257}) + std::string(8260, 'd')), "failed");
}

TEST(Codec, CodesARunOfWordsAlikeInBothWays) {
    const std::string numbers = words({1, 2, 3, 4, 5, ~0U, 6, 7, 0xfffe, 8, 9, 10, 0xfd, 11, ~1U, 'n'});
    const std::string bytes = words({'A'}) + std::string(143 * 4, '\0') + numbers + std::string(31 * 4, '\0');
    for (const std::size_t offset : {0U, 2U}) {
        EXPECT_EQ(recoded<wlan_device_t>(bytes, offset), bytes);
        for (std::size_t length = 0; length < bytes.size(); length += 4)
            EXPECT_EQ(recoded<wlan_device_t>(bytes.substr(0, length), offset), "failed") << length;
    }
    EXPECT_EQ(recoded<wlan_device_result_data_t>(words({0, 1}) + bytes), words({0, 1}) + bytes);
}

// An announced length is believed only as far as the bytes are there.
TEST(Codec, AllocatesNothingForAHostileLength) {
    for (unsigned bit = 4; bit < 32; ++bit)
        for (const unsigned length : {1U << bit, 3 - bit}) {
            char *text = nullptr;
            wlan_config_result_data_t result{};
            EXPECT_FALSE(decode(words({length, 1, 2, 3}), text));
            EXPECT_EQ(text, nullptr);
            EXPECT_FALSE(decode(words({0, length, 1, 2, 3}), result));
            EXPECT_EQ(result.return_u_int.return_u_int_val, nullptr);
        }
    const std::string one_of_two_texts = words({1, 1, 0x61000000, 9, 0x62000000}); // the first must be freed
    EXPECT_EQ(recoded<wlan_set_mac_address_control_add_1_argument>(one_of_two_texts), "failed");
}

// A transport that hands out these arguments and records the replies: the status as a digit, then the result;
// and "f" where the arguments are freed.
static std::string request_bytes, replies;
static bool can_send = true, can_free = true;

static bool_t get_arguments(SVCXPRT *, xdrproc_t codec, void *object) {
    XDR x;
    xdrmem_create(&x, request_bytes.data(), static_cast<unsigned>(request_bytes.size()), XDR_DECODE);
    return codec(&x, object);
}

static bool_t record_reply(SVCXPRT *, rpc_msg *message) {
    const accepted_reply &reply = message->acpted_rply;
    std::array<char, 64> result;
    XDR x;
    xdrmem_create(&x, result.data(), result.size(), XDR_ENCODE);
    const bool good = reply.ar_stat != SUCCESS || reply.ar_results.proc(&x, reply.ar_results.where);
    replies += std::to_string(reply.ar_stat) + std::string(result.data(), XDR_GETPOS(&x));
    return good && (can_send || reply.ar_stat != SUCCESS);
}

static bool_t release(SVCXPRT *, xdrproc_t codec, void *object) {
    replies += 'f';
    return xdr_free(codec, object), can_free;
}

static std::string dispatch(unsigned number, const std::string &sent) {
    std::tie(request_bytes, replies) = std::tuple(sent, "");
    const std::remove_cvref_t<decltype(*SVCXPRT::xp_ops)> operations{nullptr,      nullptr, get_arguments,
                                                                     record_reply, release, nullptr};
    SVCXPRT transport{};
    transport.xp_ops = &operations;
    svc_req request{};
    request.rq_proc = number;
    wlan_config_rpc_prog_1(&request, &transport);
    return replies;
}

TEST(Dispatch, AnswersEveryRequest) {
    set_known_driver(DriverState::stopped, {3, 4});
    const std::string rates = words({1, 2, 0x31320000});
    EXPECT_EQ(dispatch(NULLPROC, ""), "0");
    EXPECT_EQ(dispatch(4, ""), "0" + words({0, 4, 7, 0, 0, 0, 0}) + "f");
    EXPECT_EQ(dispatch(14, words({1})), "0" + words({0, 0, 3, 0x31310000}) + "f"); // the text "11"
    for (const unsigned number : {43U, 110U}) // a text too few: nothing is called, the one before it is freed
        EXPECT_EQ(dispatch(number, rates.substr(0, number == 43 ? 8 : 12)),
                  "f" + std::to_string(GARBAGE_ARGS));
    for (const unsigned number : {unassigned_procedures[0], last_procedure + 1, ~0U})
        EXPECT_EQ(dispatch(number, rates), std::to_string(PROC_UNAVAIL)) << number;
    can_send = false;
    EXPECT_EQ(dispatch(43, rates), "0" + words({0}) + std::to_string(SYSTEM_ERR) + "f");
    can_free = false;
    EXPECT_EXIT(dispatch(43, rates), testing::ExitedWithCode(1), "^unable to free arguments$");
}
