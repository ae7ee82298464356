#include "client/chart.h"

#include "client/text.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <span>
#include <vector>

namespace {

constexpr int strongest = -30, step = 5; // dBm, of the highest row and from row to row
constexpr int last_row = 13;             // -95 dBm
constexpr std::size_t margin = 6;        // " -30 |"
constexpr std::size_t narrowest = 4, widest = 8;
constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

struct Mark {
    char letter;
    std::int64_t channel, signal;
    int row; // from above
    const Json *neighbour;
};

// Signals beyond the picture stand at its edge.
int row_of(std::int64_t signal) {
    const std::int64_t below = std::clamp<std::int64_t>(strongest - signal, 0, step * last_row);
    return static_cast<int>((below + step / 2) / step);
}

std::vector<Mark> marks_of(const Json &neighbours) {
    std::vector<Mark> marks;
    for (const Json &each : neighbours) {
        const std::int64_t signal = each["signal"];
        marks.push_back({'*', each["channel"], signal, row_of(signal), &each});
    }
    std::stable_sort(marks.begin(), marks.end(), [](auto &a, auto &b) { return a.signal > b.signal; });
    for (std::size_t i = 0; i < std::min(marks.size(), letters.size()); ++i)
        marks[i].letter = letters[i];
    return marks;
}

std::vector<std::int64_t> channels_of(const Band &band, const std::vector<Mark> &marks) {
    std::set<std::int64_t> channels;
    for (std::int64_t channel = 1; band.name == "2.4 GHz" && channel <= 13; ++channel)
        channels.insert(channel);
    for (const Mark &mark : marks)
        channels.insert(mark.channel);
    if (band.own >= 0)
        channels.insert(band.own);
    return {channels.begin(), channels.end()};
}

// The letters that stand there; else the stem of one above.
std::string cell(const std::vector<Mark> &marks, std::int64_t channel, int row, std::size_t width) {
    std::string here;
    bool above = false;
    for (const Mark &mark : marks) {
        if (mark.channel == channel && mark.row == row)
            here += mark.letter;
        above |= mark.channel == channel && mark.row < row;
    }
    if (here.size() >= width)
        here.replace(width - 2, here.npos, "+");
    return here.empty() && above ? "|" : here;
}

std::string without_end_blanks(std::string line) { return line.erase(line.find_last_not_of(' ') + 1) + '\n'; }

// One under the other; `own` is bold where it can be.
std::string line_of_channels(std::span<const std::int64_t> channels, std::int64_t own, std::size_t width,
                             bool names) {
    std::string line(margin, ' ');
    for (const std::int64_t channel : channels) {
        const std::string text = names ? fmt::format("{}", channel) : channel == own ? "own" : "";
        const std::string placed = fmt::format("{:^{}}", text, width);
        line += channel == own ? emphasis(placed) : placed;
    }
    return without_end_blanks(line);
}

std::string picture_of(const std::vector<Mark> &marks, std::span<const std::int64_t> channels,
                       std::int64_t own, std::size_t width) {
    std::string picture;
    for (int row = 0; row <= last_row; ++row) {
        std::string line = row % 2 == 0 ? fmt::format("{:4} |", strongest - step * row) : "     |";
        for (const std::int64_t channel : channels)
            line += fmt::format("{:^{}}", cell(marks, channel, row, width), width);
        picture += without_end_blanks(line);
    }
    picture += " dBm +" + std::string(channels.size() * width, '-') + '\n';
    picture += line_of_channels(channels, own, width, true);
    if (std::find(channels.begin(), channels.end(), own) != channels.end())
        picture += line_of_channels(channels, own, width, false);
    return picture;
}

std::string legend_of(const std::vector<Mark> &marks, std::size_t width) {
    std::string legend;
    for (const Mark &mark : marks) {
        const auto text = [&mark](const char *key) {
            return shown_on(stdout, (*mark.neighbour)[key].get<std::string>());
        };
        const std::string name = text("ssid");
        const std::string line =
            fmt::format("  {}  {:4} dBm  channel {:3}  {}  {:8}  {}", mark.letter, mark.signal, mark.channel,
                        text("bssid"), text("security"), name.empty() ? "(hidden)" : name);
        legend += without_end_blanks(std::string(cut(line, width)));
    }
    return legend;
}

} // namespace

std::string chart_of(const Band &band, std::size_t width) {
    const std::vector<Mark> marks = marks_of(band.neighbours);
    const std::vector<std::int64_t> all = channels_of(band, marks);
    const std::size_t room = width - margin - 1;
    std::string chart =
        fmt::format("{}: {} neighbour{}\n", band.name, marks.size(), marks.size() == 1 ? "" : "s");
    for (std::span<const std::int64_t> left = all; !left.empty();) {
        const auto channels = left.first(std::min(left.size(), room / narrowest));
        chart += picture_of(marks, channels, band.own, std::min(room / channels.size(), widest));
        left = left.subspan(channels.size());
    }
    return chart + legend_of(marks, width);
}
