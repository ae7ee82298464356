#include "client/table.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <libsmartcols.h>
#include <memory>

namespace {

struct ReleaseTable {
    void operator()(libscols_table *table) const { scols_unref_table(table); }
};

void print_tabbed(const Table &table, bool with_heading) {
    if (with_heading)
        fmt::print("{}\n", fmt::join(table.heading, "\t"));
    for (const Row &row : table.rows)
        fmt::print("{}\n", fmt::join(row, "\t"));
}

void print_aligned(libscols_table *aligned, const Table &table, bool with_heading, bool cut) {
    scols_table_enable_noencoding(aligned, 1); // the texts are escaped already
    scols_table_enable_noheadings(aligned, with_heading ? 0 : 1);
    for (const std::string &column : table.heading)
        scols_table_new_column(aligned, column.c_str(), 0,
                               cut && &column == &table.heading.back() ? SCOLS_FL_TRUNC : 0);
    for (const Row &row : table.rows) {
        libscols_line *line = scols_table_new_line(aligned, nullptr);
        for (std::size_t i = 0; line != nullptr && i < row.size(); ++i)
            scols_line_set_data(line, i, row[i].c_str());
    }
    scols_print_table(aligned);
}

void print_whole(const Output &output, const Table &table) {
    const bool with_heading = output.header && !output.raw;
    const std::unique_ptr<libscols_table, ReleaseTable> aligned{is_terminal(stdout) ? scols_new_table()
                                                                                    : nullptr};
    if (aligned == nullptr)
        print_tabbed(table, with_heading);
    else
        print_aligned(aligned.get(), table, with_heading, output.one_line_a_row);
}

Row names_of(const Row &heading) {
    Row names;
    std::transform(heading.begin(), heading.end(), std::back_inserter(names), column_name);
    return names;
}

// Those of the chosen columns that it has, in the order in which they were chosen.
Table reduced(const std::vector<std::string> &columns, const Table &table) {
    const Row known = names_of(table.heading);
    Table chosen{{}, std::vector<Row>(table.rows.size())};
    for (const std::string &column : columns) {
        const auto at = std::find(known.begin(), known.end(), column_name(column));
        if (at == known.end())
            continue;
        const auto place = static_cast<std::size_t>(at - known.begin());
        chosen.heading.push_back(table.heading[place]);
        for (std::size_t i = 0; i < table.rows.size(); ++i)
            chosen.rows[i].push_back(table.rows[i].at(place));
    }
    return chosen;
}

} // namespace

std::string column_name(std::string_view heading) {
    std::string name{heading.substr(0, heading.find(" ("))};
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return c == ' ' ? '_' : static_cast<char>(std::tolower(c)); });
    return name;
}

Error check_columns(const Output &output, const std::vector<Row> &headings) {
    Row known;
    for (const Row &heading : headings)
        for (std::string &name : names_of(heading))
            if (std::find(known.begin(), known.end(), name) == known.end())
                known.push_back(std::move(name));
    for (const std::string &column : output.columns)
        if (!output.json && !headings.empty() &&
            std::find(known.begin(), known.end(), column_name(column)) == known.end())
            return {Trouble::usage,
                    fmt::format("no column '{}'; there are {}", column, fmt::join(known, ", "))};
    return {};
}

int print_tables(const Output &output, std::string_view text, const std::vector<Table> &tables) {
    std::vector<Row> headings;
    headings.reserve(tables.size());
    for (const Table &table : tables)
        headings.push_back(table.heading);
    if (Error error = check_columns(output, headings))
        return print_error(output, error);
    std::fwrite(text.data(), 1, text.size(), stdout); // a failure shows when it is flushed
    bool first = true;
    for (const Table &table : tables) {
        const Table shown = output.columns.empty() ? table : reduced(output.columns, table);
        if (shown.heading.empty())
            continue;
        fmt::print("{}", first ? "" : "\n");
        print_whole(output, shown);
        first = false;
    }
    return 0;
}

int print_table(const Output &output, const Table &table) { return print_tables(output, "", {table}); }
