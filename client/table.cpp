#include "client/table.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <fmt/ranges.h>
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

// The chosen columns in the order in which they were chosen.
Error choose(const std::vector<std::string> &columns, Table &table) {
    std::vector<std::size_t> chosen;
    Row known;
    for (const std::string &heading : table.heading)
        known.push_back(column_name(heading));
    for (const std::string &column : columns) {
        const auto at = std::find(known.begin(), known.end(), column_name(column));
        if (at == known.end())
            return {Trouble::usage,
                    fmt::format("no column '{}'; there are {}", column, fmt::join(known, ", "))};
        chosen.push_back(static_cast<std::size_t>(at - known.begin()));
    }
    const auto reduce = [&](const Row &row) {
        Row reduced;
        for (const std::size_t i : chosen)
            reduced.push_back(row.at(i));
        return reduced;
    };
    table.heading = reduce(table.heading);
    std::transform(table.rows.begin(), table.rows.end(), table.rows.begin(), reduce);
    return {};
}

} // namespace

std::string column_name(std::string_view heading) {
    std::string name{heading.substr(0, heading.find(" ("))};
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return c == ' ' ? '_' : static_cast<char>(std::tolower(c)); });
    return name;
}

int print_table(const Output &output, const Table &whole) {
    Table table = whole;
    if (!output.columns.empty())
        if (Error error = choose(output.columns, table))
            return print_error(output, error);
    const bool with_heading = output.header && !output.raw;
    const std::unique_ptr<libscols_table, ReleaseTable> aligned{is_terminal(stdout) ? scols_new_table()
                                                                                    : nullptr};
    if (aligned == nullptr)
        print_tabbed(table, with_heading);
    else
        print_aligned(aligned.get(), table, with_heading, output.one_line_a_row);
    return 0;
}
