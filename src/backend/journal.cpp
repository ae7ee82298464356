#include "backend/journal.h"

#include "backend/descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::uint64_t mark = 0x31656e6c6a676663; // anything else: no change is under way

struct Header {
    std::uint64_t mark = ::mark, record_sum = 0, beginning_sum = 0;
    std::uint32_t store = 0, beginning = 0, old_length = 0, new_length = 0;
};
static_assert(std::has_unique_object_representations_v<Header>);

// The header, and behind it both texts from the first changed byte on.
struct Change {
    Header header;
    std::string tails;

    std::string_view old_tail() const { return std::string_view(tails).substr(0, old_tail_length()); }
    std::string_view new_tail() const { return std::string_view(tails).substr(old_tail_length()); }
    std::size_t old_tail_length() const { return header.old_length - header.beginning; }
};

int journal = -1; // open and locked as long as the process, or until it is opened again

// The changes that may stand in part. Each file has a place in the journal: what waits until one can be read
// is in no other's way.
constexpr Store stores[] = {Store::band_24g, Store::band_5g, Store::vlan};
using Changes = std::array<std::optional<Change>, std::size(stores)>;
Changes changes;
constexpr std::size_t place_length = sizeof(Header) + 2 * settings_file_limit;

std::optional<Change> &change_of(Store store) { return changes.at(static_cast<std::size_t>(store)); }

std::size_t place_of(Store store) { return static_cast<std::size_t>(store) * place_length; }

// FNV-1a
std::uint64_t sum(std::string_view text, std::uint64_t before = 0xcbf29ce484222325) {
    for (const char c : text)
        before = (before ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return before;
}

std::string bytes_of(const Header &header) {
    std::string bytes(sizeof header, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    return bytes;
}

std::uint64_t sum_of(const Change &noted) {
    Header unsummed = noted.header;
    unsummed.record_sum = 0;
    return sum(noted.tails, sum(bytes_of(unsummed)));
}

Change make_change(Store store, std::string_view from, std::string_view to) {
    Change made;
    const std::string_view beginning = from.substr(0, common_beginning(from, to));
    made.header.store = static_cast<std::uint32_t>(store);
    made.header.beginning = static_cast<std::uint32_t>(beginning.size());
    made.header.beginning_sum = sum(beginning);
    made.header.old_length = static_cast<std::uint32_t>(from.size());
    made.header.new_length = static_cast<std::uint32_t>(to.size());
    made.tails.append(from.substr(beginning.size())).append(to.substr(beginning.size()));
    made.header.record_sum = sum_of(made);
    return made;
}

// Nothing where the record is done, was cut off while it was written, or is none of ours.
std::optional<Change> parse_change(Store store, std::string_view record) {
    Change found;
    const Header &header = found.header;
    if (record.size() < sizeof header)
        return std::nullopt;
    std::memcpy(&found.header, record.data(), sizeof header);
    if (header.mark != mark || header.store != static_cast<std::uint32_t>(store) ||
        std::max(header.old_length, header.new_length) >= settings_file_limit ||
        header.beginning > std::min(header.old_length, header.new_length))
        return std::nullopt;
    const std::size_t length = header.old_length + header.new_length - 2 * std::size_t{header.beginning};
    found.tails = record.substr(sizeof header, length);
    if (found.tails.size() != length || sum_of(found) != header.record_sum)
        return std::nullopt;
    return found;
}

// Not synced: a mark that a power cut takes away is set again at the start, for the text is the new one.
bool mark_done(Store store) {
    if (!write_all(journal, bytes_of({.mark = 0}).substr(0, sizeof mark), place_of(store)))
        return false;
    change_of(store).reset();
    return true;
}

bool note(Store store, Change noted) {
    const std::string record = bytes_of(noted.header) + noted.tails;
    change_of(store) = std::move(noted);
    if (write_all(journal, record, place_of(store)) && fsync(journal) == 0)
        return true;
    const int error = errno;
    (void)mark_done(store); // where that fails too, the start of the daemon may still find the change
    change_of(store).reset();
    errno = error;
    return false;
}

// Byte for byte of one text or the other. Behind the shorter one, also what a shrinking file is padded with
// and what a file that grew has where a block was lost.
bool is_mixture(const Change &change, std::string_view text) {
    const Header &header = change.header;
    const auto [shorter, longer] = std::minmax(header.old_length, header.new_length);
    if (text.size() < shorter || text.size() > longer ||
        sum(text.substr(0, header.beginning)) != header.beginning_sum)
        return false;
    const std::string_view tail = text.substr(header.beginning), old_tail = change.old_tail(),
                           new_tail = change.new_tail();
    for (std::size_t i = 0; i < tail.size(); ++i) {
        const bool is_known = (i < old_tail.size() && tail[i] == old_tail[i]) ||
                              (i < new_tail.size() && tail[i] == new_tail[i]);
        const bool is_filler = header.beginning + i >= shorter && (tail[i] == '\n' || tail[i] == '\0');
        if (!is_known && !is_filler)
            return false;
    }
    return true;
}

} // namespace

// Locked, for the change under way of a daemon that runs still must not be finished for it. The lock ends
// with the process, however that ends: commands do not inherit it.
bool open_journal(const char *directory) {
    if (const int before = std::exchange(journal, -1); before >= 0)
        close(before);
    errno = EINVAL;
    if (directory[0] != '/')
        return false;
    const Descriptor parent(open(directory, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!parent.valid())
        return false;
    constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    Descriptor opened(openat(parent.get(), "settings-journal", flags, 0600));
    if (!opened.valid() || flock(opened.get(), LOCK_EX | LOCK_NB) != 0 || fsync(parent.get()) != 0)
        return false;
    std::string record(std::size(stores) * place_length, '\0');
    const ssize_t length = pread(opened.get(), record.data(), record.size(), 0);
    if (length < 0)
        return false;
    record.resize(static_cast<std::size_t>(length));
    for (const Store store : stores)
        change_of(store) = parse_change(
            store, std::string_view(record).substr(std::min(place_of(store), record.size()), place_length));
    journal = opened.release();
    return true;
}

bool change_text(Store store, int fd, std::string_view from, std::string_view to) {
    if (journal < 0)
        return replace_text(fd, from, to, Sync::no) == Replaced::yes;
    if (!note(store, make_change(store, from, to)))
        return false;
    const Replaced replaced = replace_text(fd, from, to, Sync::yes);
    const int error = errno;
    if (replaced != Replaced::in_part) { // else it is kept, and marked before the next change
        // The file is whole, and there is nothing left to finish, whether the mark could be written or not.
        // Where not, the next note is written over this one; if a start comes before that, it finds nothing
        // to do in the new text and leaves any other alone. Only the old text, byte for byte, it has to take
        // for one that a kill has kept from being replaced.
        (void)mark_done(store);
        change_of(store).reset();
    }
    errno = error;
    return replaced == Replaced::yes;
}

bool is_interrupted(Store store) { return change_of(store).has_value(); }

Finished finish_change(Store store, int fd, std::string_view text) {
    const Change &change = *change_of(store);
    if (!is_mixture(change, text))
        return Finished::rewritten;
    const std::string beginning(text.substr(0, change.header.beginning)),
        finished = beginning + std::string(change.new_tail()),
        taken_back = beginning + std::string(change.old_tail());
    Replaced replaced = replace_text(fd, text, finished, Sync::yes);
    // A text that is whole may have been answered for: it stays. One that was written in part and not put
    // back is no longer `text`, but still made of both.
    if (replaced == Replaced::no && text != finished)
        replaced = replace_text(fd, text, taken_back, Sync::yes);
    if (replaced != Replaced::yes)
        return Finished::failed;
    return mark_done(store) ? Finished::yes : Finished::failed;
}

bool forget_change(Store store) { return mark_done(store); }
