#pragma once

#include <string_view>

// A log line that travels through a function as an argument, out of reach of the compiler's format check.
// Its constructor runs at compile time and compares the conversions with the types that will be printed.

void log_line_does_not_fit_its_values(); // never defined: reaching it is the compile error

namespace line_check {

// Flags, width and precision of a conversion.
constexpr const char *skip_modifiers(const char *p) {
    while (*p != '\0' && std::string_view("-+ #0123456789.").find(*p) != std::string_view::npos)
        ++p;
    return p;
}

// The conversion with its length modifier, of which only "ll" is needed.
constexpr std::string_view conversion_at(const char *p) {
    const std::string_view rest = p;
    return rest.substr(0, rest.starts_with("ll") ? 3 : 1);
}

template <class Value>
constexpr bool prints(std::string_view conversion) = delete;
template <>
constexpr bool prints<int>(std::string_view conversion) {
    return conversion == "d" || conversion == "i";
}
template <>
constexpr bool prints<unsigned>(std::string_view conversion) {
    return conversion == "u" || conversion == "x" || conversion == "X";
}
template <>
constexpr bool prints<long long>(std::string_view conversion) {
    return conversion == "lld";
}
template <>
constexpr bool prints<const char *>(std::string_view conversion) {
    return conversion == "s";
}

} // namespace line_check

template <class... Values>
struct Line {
    const char *text;

    consteval Line(const char *literal) : text(literal) {
        bool (*const fits[])(std::string_view) = {line_check::prints<Values>..., nullptr};
        unsigned seen = 0;
        for (const char *p = literal; *p != '\0'; ++p) {
            if (*p != '%')
                continue;
            if (*++p == '%')
                continue;
            p = line_check::skip_modifiers(p);
            const std::string_view conversion = line_check::conversion_at(p);
            if (seen == sizeof...(Values) || !fits[seen++](conversion))
                log_line_does_not_fit_its_values();
            p += conversion.size() - 1;
        }
        if (seen != sizeof...(Values))
            log_line_does_not_fit_its_values();
    }
};
