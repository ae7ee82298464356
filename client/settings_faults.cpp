#include "client/settings_faults.h"

#include "client/knowledge.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <map>
#include <set>

namespace {

constexpr std::size_t most_named = 6;                    // of what has the same fault
constexpr std::size_t list_fields = 16, most_bsses = 64; // of a radio

// A key, its value, and the lines on which it stands. The first counts.
struct StoredValue {
    std::string_view value;
    std::vector<std::size_t> lines;
};
using Settings = std::map<std::string, StoredValue, std::less<>>;

using Faults = std::vector<std::string>;

// "Channel, SSID1 and 3 more".
std::string naming(const std::vector<std::string> &all) {
    const std::size_t named = std::min(all.size(), most_named);
    std::string text = fmt::format("{}", fmt::join(all.begin(), all.begin() + std::ptrdiff_t(named), ", "));
    return named == all.size() ? text : fmt::format("{} and {} more", text, all.size() - named);
}

void add(Faults &faults, const char *form, const std::vector<std::string> &found) {
    if (!found.empty())
        faults.push_back(fmt::format(fmt::runtime(form), naming(found)));
}

bool is_among(std::span<const char *const> names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The first line is a heading, whatever it says. An empty line or a remark does no harm.
Settings read(std::string_view text, Faults &faults) {
    Settings settings;
    std::vector<std::string> wrong, too_long, returns;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::size_t equals = line.find('=');
        const std::string shown = fmt::format("{}", number);
        if (number == 1 && equals != line.npos && !line.starts_with('#'))
            faults.emplace_back("the first line is a heading, what is set there is never found");
        if (number == 1 || line.empty() || line.starts_with('#'))
            continue;
        if (equals == line.npos || equals == 0 || line.find('\0') != line.npos) {
            wrong.push_back(shown);
            continue;
        }
        if (equals > settings_format().longest_key)
            too_long.push_back(shown);
        if (line.back() == '\r')
            returns.push_back(shown);
        StoredValue &setting = settings[std::string(line.substr(0, equals))];
        if (setting.lines.empty())
            setting.value = line.substr(equals + 1);
        setting.lines.push_back(number);
    }
    add(faults, "no KEY=VALUE in line {}", wrong);
    add(faults, "too long a key in line {}", too_long);
    add(faults, "a carriage return ends line {}", returns);
    return settings;
}

// 0 where it is not told.
std::size_t bsses_of(const Settings &settings) {
    std::size_t count = 0;
    if (const auto told = settings.find("BssidNum"); told != settings.end())
        std::from_chars(told->second.value.data(), told->second.value.data() + told->second.value.size(),
                        count);
    return std::min(count, most_bsses);
}

// The key of the description, for each BSS where it counts them.
std::vector<std::string> keys_of(std::string_view key, std::size_t bsses) {
    const std::size_t place = key.find("%d");
    if (place == key.npos)
        return {std::string(key)};
    std::vector<std::string> keys;
    const std::size_t first = is_among(settings_format().from_zero, key) ? 0 : 1;
    for (std::size_t number = first; number < first + bsses; ++number)
        keys.push_back(fmt::format("{}{}{}", key.substr(0, place), number, key.substr(place + 2)));
    return keys;
}

std::vector<std::string> missing_keys(const Settings &settings, std::size_t bsses) {
    std::set<std::string> missing;
    for (const Procedure &procedure : protocol)
        for (const char *described : knowledge_of(procedure).keys)
            if (!is_among(settings_format().elsewhere, described))
                for (const std::string &key : keys_of(described, bsses))
                    if (!settings.contains(key))
                        missing.insert(key);
    return {missing.begin(), missing.end()};
}

std::vector<std::string> short_lists(const Settings &settings, std::size_t bsses) {
    std::vector<std::string> found;
    for (const char *key : settings_format().lists) {
        const auto list = settings.find(key);
        if (list == settings.end())
            continue;
        const std::string_view value = list->second.value;
        const auto fields = static_cast<std::size_t>(std::count(value.begin(), value.end(), ';')) + 1;
        if (fields < std::min(bsses, list_fields))
            found.push_back(fmt::format("{} ({})", key, value.empty() ? 0 : fields));
    }
    return found;
}

} // namespace

Faults faults_of_settings(std::string_view text) {
    Faults faults;
    if (text.size() > settings_format().longest_file)
        faults.push_back(fmt::format("it has {} bytes; {} are the most that can be changed", text.size(),
                                     settings_format().longest_file));
    if (!text.empty() && text.back() != '\n')
        faults.emplace_back("the last line has no end: it may have been cut off");
    const Settings settings = read(text, faults);
    std::vector<std::string> doubled;
    for (const auto &[key, setting] : settings)
        if (setting.lines.size() > 1)
            doubled.push_back(fmt::format("{} (lines {})", key, fmt::join(setting.lines, " and ")));
    add(faults, "more than once, and only the first counts: {}", doubled);
    const std::size_t bsses = bsses_of(settings);
    if (bsses == 0)
        faults.emplace_back("BssidNum does not tell the number of BSSes");
    add(faults, "missing: {}", missing_keys(settings, bsses));
    add(faults, fmt::format("fewer fields than the {} BSSes: {{}}", bsses).c_str(),
        short_lists(settings, bsses));
    return faults;
}
