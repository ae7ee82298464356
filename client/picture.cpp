#include "client/picture.h"

#include "client/text.h"

#include <algorithm>
#include <fmt/format.h>

std::string cell_of(const Json &value) {
    if (value.is_null())
        return "-";
    if (value.is_boolean())
        return value == true ? "yes" : "no";
    return value.is_string() ? shown_on(stdout, value.get<std::string>()) : value.dump();
}

Table table_of(const Json &objects, const std::vector<Column> &columns) {
    Table table;
    for (const Column &column : columns)
        table.heading.emplace_back(column.heading);
    for (const Json &object : objects) {
        Row &row = table.rows.emplace_back();
        for (const Column &column : columns)
            row.push_back(cell_of(object.at(column.key)));
    }
    return table;
}

int print_picture(const Output &output, const Picture &picture) {
    return print_tables(output, picture.text, picture.tables);
}

void fit(Picture &picture, std::size_t lines) {
    auto &[text, tables, value] = picture;
    auto used = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 2 * tables.size() -
                (tables.empty() ? 0 : 1); // headings, and blank lines between
    for (const Table &table : tables)
        used += table.rows.size();
    std::size_t excess = used > lines ? used - lines : 0, gone = 0;
    for (auto table = tables.rbegin(); table != tables.rend() && excess > gone; ++table) {
        const std::size_t cut = std::min(table->rows.size(), excess + 1 - gone); // one for the last row
        table->rows.resize(table->rows.size() - cut);
        gone += cut;
        if (cut > 0) {
            table->rows.emplace_back(table->heading.size());
            table->rows.back().front() = fmt::format("... {} more", cut);
        }
        gone -= cut > 0 ? 1 : 0;
    }
    while (excess > gone && !text.empty()) {
        text.erase(text.find_last_of('\n', text.size() - 2) + 1);
        ++gone;
    }
}
