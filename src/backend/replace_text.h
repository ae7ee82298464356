#pragma once

#include <cstddef>
#include <string_view>

enum class [[nodiscard]] Replaced : unsigned char{
    yes,
    no,      // the old text stands as before
    in_part, // nor could the old text be put back
};
enum class Sync : bool { no, yes };

// Turns the text of an open file into another, in place: the file keeps its inode, a reader never finds it
// empty, and a full disk or an I/O error leaves (or puts back) the old text. Whichever stands then has
// reached the disk where that is wanted. errno is set unless the answer is yes.
Replaced replace_text(int fd, std::string_view from, std::string_view to, Sync wanted);

// What stays when one text takes the other's place.
std::size_t common_beginning(std::string_view from, std::string_view to);

// False with errno set.
bool write_all(int fd, std::string_view text, std::size_t offset);
