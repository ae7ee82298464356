#include "client/command_line.h"
#include "client/file.h"

#include <fmt/format.h>
#include <optional>
#include <string>

namespace {

// The words of a line as a shell reads them: quotes of both kinds, a backslash before any character (between
// single quotes it is itself), # begins a comment. Nothing is replaced. No words where a quote is left open.
std::optional<Words> split(const std::string &line) {
    Words words;
    char quote = '\0';
    bool in_word = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char letter = line[i];
        const bool blank = letter == ' ' || letter == '\t' || letter == '\r';
        if (quote == '\0' && !in_word && letter == '#')
            return words;
        if (quote == '\0' && blank) {
            in_word = false;
            continue;
        }
        if (!in_word)
            words.emplace_back();
        in_word = true;
        if (quote == '\0' && (letter == '\'' || letter == '"')) {
            quote = letter;
        } else if (quote == letter) {
            quote = '\0';
        } else if (letter == '\\' && quote != '\'') {
            if (++i == line.size())
                return std::nullopt;
            if (quote == '"' && line[i] != '"' && line[i] != '\\')
                words.back() += letter;
            words.back() += line[i];
        } else {
            words.back() += letter;
        }
    }
    return quote == '\0' ? std::optional(words) : std::nullopt;
}

// Runs a line with the options of the whole batch, which it may add to for itself.
int run_line(Context &context, const std::string &line) {
    const std::optional<Words> words = split(line);
    if (!words)
        return print_error(context.output, {Trouble::usage, "a quote or a backslash is left open"});
    if (words->empty())
        return 0;
    const Output output = context.output;
    const Options options = context.options;
    const int status = run_command_line(context, *words, true);
    context.output = output;
    context.options = options;
    std::fflush(stdout); // whoever feeds the lines may wait for it
    return status;
}

} // namespace

int batch(Context &context, const Words &words) {
    const std::string path = words.empty() ? "-" : words.front();
    File file;
    if (Error error = open_file(path, file))
        return print_error(context.output, error);
    context.output.json = true;
    context.options.input_taken = path == "-";
    int first_failure = 0;
    std::string line;
    Error unread;
    for (std::size_t number = 1; read_line(file.get(), path, line, unread); ++number) {
        const int status = run_line(context, line);
        if (status == 0)
            continue;
        fmt::print(stderr, "wlanctl: line {} failed\n", number);
        first_failure = first_failure == 0 ? status : first_failure;
        if (!context.options.keep_going || status == static_cast<int>(Trouble::interrupted))
            break;
    }
    if (unread && first_failure == 0)
        return print_error(context.output, unread);
    return first_failure;
}
