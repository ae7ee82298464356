#include "security/access_list_text.h"

#include <algorithm>

namespace {

constexpr char separator_of_entries = ';';

} // namespace

void STR_TO_UPPERCASE(std::span<char> text) {
    for (char &c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
}

bool IS_HEX(std::string_view text) {
    return text.find_first_not_of("0123456789ABCDEFabcdef:") == std::string_view::npos;
}

int ParseStringForTok(std::string_view text, std::span<std::string_view> ret_tokens, char separator) {
    if (text.empty())
        return 0;
    std::size_t count = 0;
    for (;;) {
        if (count == ret_tokens.size())
            return -1;
        const std::size_t length = std::min(text.find(separator), text.size());
        ret_tokens[count++] = text.substr(0, length);
        if (length == text.size())
            return static_cast<int>(count);
        text.remove_prefix(length + 1);
    }
}

Status BuildAccessListString(std::span<const std::string_view> tokens, std::string *ret_list,
                             AccessListMode mode, std::string_view new_item, std::size_t skipped) {
    ret_list->clear();
    switch (mode) {
    case AccessListMode::append:
        for (const std::string_view token : tokens)
            ret_list->append(token) += separator_of_entries;
        ret_list->append(new_item);
        return success;
    case AccessListMode::remove:
        for (std::size_t i = 0; i < tokens.size(); ++i)
            if (i != skipped)
                ret_list->append(tokens[i]) += separator_of_entries;
        if (!ret_list->empty())
            ret_list->pop_back();
        return success;
    }
    return failure;
}
