// What was entered in a report since it was last calculated: whether its figures are those of its entries.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "common/currency.h"
#include "common/value.h"

namespace tallmar {

class Database;

// Cells count by what they hold: an entry that is taken back, or entered again as it was, is none. Rows that were added
// or removed count as one entry each. The file has no place for the count; for a window it is kept from one opening to
// the next in the user's settings.
class EntryAge {
  public:
    // The report at `reportPath` was opened or made.
    void Report_Opened(const std::string& reportPath);
    // One cell of a worksheet's table went from `before` to `after`.
    void Cell_Stored(std::string_view table, Currency line, std::string_view field, const Value& before,
                     const Value& after);
    void Row_Added_Or_Removed(std::string_view table, Currency line);
    // Something that is no cell and goes into the calculation: the identity.
    void Other_Entry() { ++others_; }
    // As Database::Changed_Elsewhere of the report, and remembered until the next calculation.
    bool Look_Elsewhere(Database& database);
    // The whole report was calculated, with so many messages.
    void Calculated(Database& database, std::size_t messages);

    std::size_t Entries() const { return cells_.size() + rows_.size() + others_ + remembered_; }
    // The figures may be other than a calculation would give.
    bool Is_Older() const { return Entries() > 0 || elsewhere_; }
    // "12 entries since the last calculation", "Calculated 6:12 PM", "Not calculated since it was opened".
    std::string Text() const;
    // "Calculated 6:12 PM, no messages."; empty before the first calculation since opening.
    std::string Calculation_Text() const;
    // Keeps the count in the settings, under the path of the report. For after every change.
    void Remember(const std::string& reportPath);

  private:
    struct Calculation {
        Date at;
        std::size_t messages;
    };
    using RowKey = std::pair<std::string, Currency>;  // table and line
    using CellKey = std::pair<RowKey, std::string>;   // and field
    std::map<CellKey, Value> cells_;                  // as the last calculation found them
    std::set<RowKey> rows_;                           // that came or went
    std::size_t others_ = 0;
    std::size_t remembered_ = 0;  // of former openings
    bool elsewhere_ = false;
    std::optional<Calculation> calculation_;                   // since opening
    std::optional<std::pair<std::string, std::size_t>> kept_;  // path and count as the settings have them
};

}  // namespace tallmar
