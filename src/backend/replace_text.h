#pragma once

#include <string_view>

// Turns the text of an open file into another, in place: the file keeps its inode, a reader never finds it
// empty, and a full disk or an I/O error leaves (or puts back) the old text. False on failure, with errno
// set.
bool replace_text(int fd, std::string_view from, std::string_view to);
