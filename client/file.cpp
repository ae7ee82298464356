#include "client/file.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fmt/format.h>

namespace {

constexpr std::size_t longest_line = 1 << 16;

std::string shown_name(const std::string &path) { return path == "-" ? "standard input" : path; }

Error unreadable(const std::string &path) {
    return {Trouble::usage, fmt::format("cannot read {}: {}", shown_name(path), std::strerror(errno))};
}

} // namespace

void CloseFile::operator()(std::FILE *file) const {
    if (file != stdin)
        std::fclose(file);
}

Error open_file(const std::string &path, File &ret_file) {
    ret_file.reset(path == "-" ? stdin : std::fopen(path.c_str(), "re"));
    return ret_file == nullptr ? unreadable(path) : Error{};
}

Error read_file(const std::string &path, std::size_t most, std::string &ret_content) {
    File file;
    if (Error error = open_file(path, file))
        return error;
    ret_content.clear();
    std::array<char, 4096> piece;
    std::size_t length = 0;
    while (ret_content.size() <= most && (length = std::fread(piece.data(), 1, piece.size(), file.get())) > 0)
        ret_content.append(piece.data(), length);
    if (std::ferror(file.get()) != 0)
        return unreadable(path);
    if (ret_content.size() > most)
        return {Trouble::usage, fmt::format("{} has more than {} bytes", shown_name(path), most)};
    return {};
}

bool read_line(std::FILE *file, const std::string &path, std::string &ret_line, Error &ret_error) {
    ret_line.clear();
    int letter = 0;
    while ((letter = std::getc(file)) != EOF && letter != '\n') {
        if (ret_line.size() == longest_line) {
            ret_error = {Trouble::usage,
                         fmt::format("{} has a line of more than {} bytes", shown_name(path), longest_line)};
            return false;
        }
        ret_line += static_cast<char>(letter);
    }
    if (std::ferror(file) != 0)
        ret_error = unreadable(path);
    return !ret_error && (letter == '\n' || !ret_line.empty());
}
