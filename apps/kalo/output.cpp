#include "output.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "failure.h"
#include "system.h"
#include "text.h"

namespace cli {
namespace {

constexpr int kGap = 2;

std::string CellText(const Column& column, const Cell& cell) {
    return column.shown == Shown::Hex ? cell.HexText() : cell.Text();
}

// One line of a table for people holds one row, whatever its texts hold.
std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char sign) { return static_cast<unsigned char>(sign) < ' '; }, ' ');
    return text;
}

// A column for people: its cells' texts, the heading first, padded to one width.
std::vector<std::string> PaddedColumn(const Table& table, std::size_t index, bool last) {
    const Column& column = table.columns[index];
    std::vector<std::string> texts{column.name};
    bool numbers = !table.rows.empty();
    for (const auto& row : table.rows) {
        texts.push_back(OneLine(CellText(column, row[index])));
        numbers = numbers && row[index].IsNumber();
    }
    int width = 0;
    for (const std::string& text : texts)
        width = std::max(width, DisplayWidth(text));
    for (std::string& text : texts) {
        const auto padding = static_cast<std::size_t>(width - DisplayWidth(text));
        if (numbers)
            text.insert(0, padding, ' ');
        else if (!last)
            text.append(padding, ' ');
    }
    return texts;
}

std::string ForPeople(const Table& table) {
    std::vector<std::size_t> shown;
    for (std::size_t index = 0; index < table.columns.size(); ++index)
        if (table.columns[index].shown != Shown::Detail) shown.push_back(index);
    std::vector<std::string> lines(table.rows.size() + 1);
    for (const std::size_t index : shown) {
        const std::vector<std::string> texts = PaddedColumn(table, index, index == shown.back());
        for (std::size_t line = 0; line < lines.size(); ++line) {
            if (index != shown.front()) lines[line].append(kGap, ' ');
            lines[line] += texts[line];
        }
    }
    std::string text;
    for (std::string& line : lines) {
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char sign : text) {
        if (sign == '"') quoted += '"';
        quoted += sign;
    }
    return quoted + '"';
}

std::string Csv(const Table& table) {
    std::string text;
    for (std::size_t index = 0; index < table.columns.size(); ++index)
        text += (index == 0 ? "" : ",") + CsvField(table.columns[index].name);
    text += "\r\n";
    for (const auto& row : table.rows) {
        for (std::size_t index = 0; index < row.size(); ++index)
            text += (index == 0 ? "" : ",") + CsvField(CellText(table.columns[index], row[index]));
        text += "\r\n";
    }
    return text;
}

struct JsonOf {
    nlohmann::ordered_json operator()(std::monostate) const { return nullptr; }
    nlohmann::ordered_json operator()(const auto& value) const { return value; }
};

std::string Json(const Table& table) {
    auto rows = nlohmann::ordered_json::array();
    for (const auto& row : table.rows) {
        auto object = nlohmann::ordered_json::object();
        for (std::size_t index = 0; index < row.size(); ++index)
            object[table.columns[index].name] = std::visit(JsonOf{}, row[index].Get());
        rows.push_back(std::move(object));
    }
    return rows.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

}  // namespace

void Print(const Table& table, Format format) {
    switch (format) {
        case Format::Table:
            return PrintText(ForPeople(table));
        case Format::Csv:
            return PrintText(Csv(table));
        case Format::Json:
            return PrintText(Json(table));
    }
}

void PrintText(const std::string& text) {
    const std::size_t written = std::fwrite(text.data(), 1, text.size(), stdout);
    const bool failed = written != text.size() || std::fflush(stdout) != 0;
    if (failed && !ReaderIsGone()) throw Failure("the output cannot be written");
}

}  // namespace cli
