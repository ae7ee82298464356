#include "client/terminal.h"

#include "client/text.h"

#include <cstdlib>
#include <cstring>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <langinfo.h>
#include <nlohmann/json.hpp>
#include <sys/ioctl.h>
#include <unistd.h>

bool is_terminal(std::FILE *stream) { return isatty(fileno(stream)) == 1; }

// A terminal that is not set to UTF-8 may take its bytes for control characters.
std::string shown_on(std::FILE *stream, std::string_view text) {
    return printable(text, is_terminal(stream) && std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0);
}

std::string emphasis(std::string_view text) {
    const char *no_colour = std::getenv("NO_COLOR");
    if (!is_terminal(stdout) || (no_colour != nullptr && *no_colour != '\0'))
        return std::string{text};
    return fmt::format("\x1b[1m{}\x1b[0m", text);
}

// It escapes the control characters of ASCII only, so a terminal gets ASCII only.
void print_json(const Json &object) {
    fmt::print("{}\n", object.dump(-1, ' ', is_terminal(stdout), Json::error_handler_t::replace));
}

void add_value(Json &object, const std::string &key, const Json &value) {
    object[key] = value;
    if (value.is_string() && !is_utf8(value.get<std::string>()))
        object[key + "_hex"] = hexadecimal(value.get<std::string>());
}

std::size_t width_of_terminal() {
    constexpr std::size_t usual = 80;
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 40 ? size.ws_col : usual;
}

std::size_t height_of_terminal() {
    constexpr std::size_t usual = 24;
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 ? size.ws_row : usual;
}

std::string moment(std::time_t time) { return fmt::format("{:%FT%TZ}", fmt::gmtime(time)); }

// Counts bytes: what is wrapped is the description's own English.
std::string wrapped(std::string_view text, std::size_t indent) {
    const std::size_t width = width_of_terminal() - indent;
    std::string lines;
    while (text.size() > width) {
        std::size_t end = text.rfind(' ', width);
        if (end == text.npos || end == 0)
            end = std::min(text.find(' '), text.size());
        lines.append(text.substr(0, end)).append("\n").append(indent, ' ');
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines.append(text);
}
