#pragma once

#include "backend/config_store.h"
#include "backend/replace_text.h"

#include <string_view>

// The change of each settings file that is under way, noted in a file of the daemon's own: what a kill or a
// power cut leaves of it can be told from what others have written, and finished. The caller holds the store.

// Takes up what the journal in the directory, an absolute path, holds, or begins one. False with errno set,
// EWOULDBLOCK where another daemon has it: then no journal is open.
bool open_journal(const char *directory);

// Replaces the text of a settings file, noted and synced where a journal is open. Whether it did; else errno
// is set.
bool change_text(Store store, int fd, std::string_view from, std::string_view to);

// Whether the last change of the file may stand in part.
bool is_interrupted(Store store);

// `text` is what the file holds now. A change that cannot be finished, on a full disk, is taken back.
enum class [[nodiscard]] Finished : unsigned char{
    yes,
    failed,   // with errno set; the journal keeps the change
    rewritten // the text is not made of the old and the new one: nothing is done
};
Finished finish_change(Store store, int fd, std::string_view text);
[[nodiscard]] bool forget_change(Store store);
