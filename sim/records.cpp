#include "records.h"

#include "state.h"

#include <charconv>
#include <cstdint>
#include <cstring>
#include <span>

namespace sim {
namespace {

template <typename Number>
bool parse(std::string_view text, int base, Number *ret_value) {
    const char *end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, *ret_value, base);
    return result.ec == std::errc{} && result.ptr == end;
}

// Cuts the text at the first `mark` and hands out what stood before it.
std::string_view take(std::string_view *rest, char mark) {
    const std::size_t end = rest->find(mark);
    const std::string_view head = rest->substr(0, end);
    rest->remove_prefix(end == std::string_view::npos ? rest->size() : end + 1);
    return head;
}

bool parse_integer(std::string_view text, std::uint64_t *ret_value) {
    const bool negative = text.starts_with('-');
    text.remove_prefix(negative ? 1 : 0);
    const bool hexadecimal = text.starts_with("0x");
    if (!parse(text.substr(hexadecimal ? 2 : 0), hexadecimal ? 16 : 10, ret_value)) {
        return false;
    }
    *ret_value = negative ? 0 - *ret_value : *ret_value;
    return true;
}

void append_integer(std::uint64_t value, std::size_t width, std::string *bytes) {
    const auto append = [bytes](auto number) {
        bytes->append(reinterpret_cast<const char *>(&number), sizeof number);
    };
    switch (width) {
    case 1:
        append(static_cast<std::uint8_t>(value));
        break;
    case 2:
        append(static_cast<std::uint16_t>(value));
        break;
    case 4:
        append(static_cast<std::uint32_t>(value));
        break;
    default:
        append(value);
        break;
    }
}

bool integer_bytes(std::string_view list, std::size_t width, std::string *bytes) {
    while (!list.empty()) {
        std::uint64_t value = 0;
        if (!parse_integer(take(&list, ','), &value)) {
            return false;
        }
        append_integer(value, width, bytes);
    }
    return true;
}

bool mac_bytes(std::string_view text, std::string *bytes) {
    while (!text.empty()) {
        std::uint8_t octet = 0;
        if (!parse(take(&text, ':'), 16, &octet)) {
            return false;
        }
        append_integer(octet, 1, bytes);
    }
    return bytes->size() == 6;
}

bool text_bytes(std::string_view text, std::string *bytes) {
    while (!text.empty()) {
        std::uint8_t octet = 0;
        if (text.starts_with("\\x") && parse(text.substr(2, 2), 16, &octet)) {
            append_integer(octet, 1, bytes);
            text.remove_prefix(text.size() < 4 ? text.size() : 4);
        } else {
            bytes->push_back(text.front());
            text.remove_prefix(1);
        }
    }
    return true;
}

bool put_field(std::string_view field, std::span<char> record) {
    std::size_t offset = 0;
    std::size_t width = 0;
    if (!parse(take(&field, '/'), 10, &offset)) {
        return false;
    }
    const std::string_view type = take(&field, '=');
    std::string bytes;
    bool good = false;
    if (type == "mac") {
        good = mac_bytes(field, &bytes);
    } else if (type == "str") {
        good = text_bytes(field, &bytes);
    } else if (type == "1" || type == "2" || type == "4" || type == "8") {
        good = parse(type, 10, &width) && integer_bytes(field, width, &bytes);
    }
    if (!good || offset > record.size() || bytes.size() > record.size() - offset) {
        return false;
    }
    std::memcpy(record.data() + offset, bytes.data(), bytes.size());
    return true;
}

void put_line(const std::string &name, std::string_view line, std::span<char> record) {
    while (!line.empty()) {
        const std::string_view field = take(&line, ' ');
        if (!field.empty() && !put_field(field, record)) {
            log_line("bad " + name + ' ' + std::string(field));
        }
    }
}

} // namespace

std::string build_answer(const std::string &name, std::string_view text, const Layout &layout) {
    std::string answer(layout.size, '\0');
    const std::size_t length = layout.stride != 0 ? layout.stride : layout.size;
    std::size_t at = layout.count_width;
    std::uint64_t count = 0;
    while (!text.empty()) {
        const std::string_view line = take(&text, '\n');
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        if (length > layout.size - at) {
            break;
        }
        put_line(name, line, std::span(answer).subspan(at, length));
        at += layout.stride;
        ++count;
    }
    if (layout.count_width != 0) {
        std::string bytes;
        append_integer(count, layout.count_width, &bytes);
        answer.replace(0, bytes.size(), bytes);
    }
    return answer;
}

} // namespace sim
