// The dump of a report, read back so that two of them can be held against each other cell by cell.
#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

// What `tallmar dump` printed. Times of the run (of Master, Log and Worksheets) are replaced by "time"; the date that
// says never (12/30/1899) stays. Throws nlohmann::json::exception where the text is no dump.
class DumpFile {
  public:
    explicit DumpFile(std::string_view text);

    // One row a line, as the program prints it.
    std::string Text() const;
    // The cell in `field`; nothing where there is no such table, line or column.
    std::optional<nlohmann::ordered_json> Cell(const std::string& table, double line, const std::string& field) const;

    const nlohmann::ordered_json& Whole() const { return json_; }

  private:
    nlohmann::ordered_json json_;
};

// "A line 6 Col_10: 1488150 expected, 1488151 found" for each cell that differs, at most `limit` of them; then how many
// more. Tables, columns and rows that only one has count as well.
std::vector<std::string> Differences(const DumpFile& expected, const DumpFile& found, std::size_t limit = 40);

}  // namespace tallmar
