#include "golden/dump_file.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>

namespace tallmar {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array kTimedTables{"Log", "Worksheets"};
constexpr const char* kNever = "1899-12-30T00:00:00";

void Mask(Json& cell) {
    if (cell.is_string() && cell != kNever) cell = "time";
}

std::optional<std::size_t> Position(const Json& table, std::string_view field) {
    const Json& columns = table.at("columns");
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].at("name") == field) return i;
    }
    return std::nullopt;
}

void Mask_Column(Json& table, std::size_t column) {
    for (Json& row : table.at("rows")) Mask(row.at(column));
}

void Mask_Times(Json& dump) {
    Mask(dump.at("master").at("BuildDate"));
    Json& tables = dump.at("tables");
    if (tables.contains("Master")) {
        if (const auto built = Position(tables["Master"], "BuildDate")) Mask_Column(tables["Master"], *built);
    }
    for (const char* name : kTimedTables) {
        if (!tables.contains(name)) continue;
        const Json& columns = tables[name].at("columns");
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].at("type") == "Date") Mask_Column(tables[name], i);
        }
    }
}

// What distinguishes a row from the others of its table: its line, else its place. Lines that occur twice keep their
// order.
using Key = std::pair<std::string, int>;

std::map<Key, const Json*> Keyed(const Json& table) {
    std::map<Key, const Json*> keyed;
    const auto line = Position(table, "LineNum");
    const Json& rows = table.at("rows");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string name = line ? "line " + rows[i].at(*line).dump() : "row " + std::to_string(i + 1);
        int occurrence = 0;
        while (keyed.contains({name, occurrence})) ++occurrence;
        keyed.emplace(Key{name, occurrence}, &rows[i]);
    }
    return keyed;
}

class Comparison {
  public:
    explicit Comparison(std::size_t limit) : limit_(limit) {}

    void Add(std::string difference) {
        ++count_;
        if (differences_.size() < limit_) differences_.push_back(std::move(difference));
    }
    void Add(const std::string& place, const Json& expected, const Json& found) {
        if (expected != found) Add(place + ": " + expected.dump() + " expected, " + found.dump() + " found");
    }
    std::vector<std::string> Take() {
        if (count_ > differences_.size()) {
            differences_.push_back("and " + std::to_string(count_ - differences_.size()) + " more");
        }
        return std::move(differences_);
    }

  private:
    std::size_t limit_;
    std::size_t count_ = 0;
    std::vector<std::string> differences_;
};

void Compare_Tables(const std::string& name, const Json& expected, const Json& found, Comparison& comparison) {
    if (expected.at("columns") != found.at("columns")) {
        return comparison.Add(name + " columns", expected.at("columns"), found.at("columns"));
    }
    const auto left = Keyed(expected);
    auto right = Keyed(found);
    for (const auto& [key, row] : left) {
        const std::string place = name + " " + key.first;
        const auto other = right.find(key);
        if (other == right.end()) {
            comparison.Add(place + " is missing");
            continue;
        }
        for (std::size_t i = 0; i < row->size(); ++i) {
            const std::string column = expected.at("columns")[i].at("name");
            comparison.Add(place + " " + column, row->at(i), other->second->at(i));
        }
        right.erase(other);
    }
    for (const auto& [key, row] : right) comparison.Add(name + " " + key.first + " is new: " + row->dump());
}

}  // namespace

DumpFile::DumpFile(std::string_view text) : json_(Json::parse(text)) {
    Mask_Times(json_);
}

std::string DumpFile::Text() const {
    std::string text = "{\"master\":" + json_.at("master").dump() + ",\n\"tables\":{";
    const char* separator = "\n";
    for (const auto& [name, table] : json_.at("tables").items()) {
        text += separator + Json(name).dump() + ":{\"columns\":" + table.at("columns").dump() + ",\n\"rows\":[";
        separator = ",\n";
        const char* between = "\n";
        for (const Json& row : table.at("rows")) {
            text += between + row.dump();
            between = ",\n";
        }
        text += "]}";
    }
    return text + "}}\n";
}

std::optional<Json> DumpFile::Cell(const std::string& table, double line, const std::string& field) const {
    const Json& tables = json_.at("tables");
    if (!tables.contains(table)) return std::nullopt;
    const Json& found = tables.at(table);
    const auto lineColumn = Position(found, "LineNum");
    const auto column = Position(found, field);
    if (!lineColumn || !column) return std::nullopt;
    for (const Json& row : found.at("rows")) {
        if (row.at(*lineColumn) == line) return row.at(*column);
    }
    return std::nullopt;
}

std::vector<std::string> Differences(const DumpFile& expected, const DumpFile& found, std::size_t limit) {
    Comparison comparison(limit);
    const Json& left = expected.Whole();
    const Json& right = found.Whole();
    for (const auto& [name, value] : left.at("master").items()) {
        comparison.Add("master " + name, value, right.at("master").value(name, Json()));
    }
    for (const auto& [name, table] : left.at("tables").items()) {
        if (right.at("tables").contains(name)) {
            Compare_Tables(name, table, right.at("tables").at(name), comparison);
        } else {
            comparison.Add("table " + name + " is missing");
        }
    }
    for (const auto& [name, table] : right.at("tables").items()) {
        if (!left.at("tables").contains(name)) comparison.Add("table " + name + " is new");
    }
    return comparison.Take();
}

}  // namespace tallmar
