// What a worksheet's form is, without a window: its rows and columns, what each cell takes, which cells are locked, how
// rows come and go. The grid of the desktop and `enter` of the command line both work from these descriptions.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/currency.h"
#include "common/item.h"
#include "common/lines.h"
#include "common/text.h"
#include "common/value.h"
#include "db/database.h"
#include "screens/entry_talk.h"

namespace tallmar {

enum class CellKind : std::uint8_t {
    Shown,   // never entered: line numbers, totals, what a calculation fills
    Text,    // up to `limit` characters
    Name,    // the same, and it names its row: the keys pass it by once it is filled, and it is never a bare number
    Number,  // rounded to `limit` places; blank is 0
    Own,     // the form's own check decides
};

constexpr bool Takes_Text(CellKind kind) {
    return kind == CellKind::Text || kind == CellKind::Name;
}

// A column as the program knows it.
struct FormColumn {
    std::string_view field;
    std::string_view number;  // of the head, up to 10 characters
    std::string_view label;   // up to 100
    CellKind kind = CellKind::Shown;
    int limit = 0;
    std::string_view format = {};
    std::string_view why = {};  // of a Shown column: where its cells come from; empty: it is computed, or a wording
};

// A column as an open form has it; on B-1 they come from the chart.
struct GridColumn {
    std::string field, number, label, format;
    CellKind kind = CellKind::Shown;
    int limit = 0;
    FieldType type = FieldType::Text;
    int size = 0;          // characters that the table holds
    bool hidden = false;   // not shown in this year
    std::string why = {};  // its cells take nothing
    std::string tag;       // B-1: "ACCUM. COST", "[Source CC]", "[from CC_<n>]"
};

// What a check makes of a typed text: the value for the cell, and for further cells of the row that it fills (the name
// beside a number), or the refusal.
struct CellResult {
    std::optional<Refusal> refusal;
    Value value;
    std::vector<std::pair<std::string, Value>> filled;
};

// One row while the cursor is in it: the cells of the table, and over them what was entered since.
class RowUnderEdit {
  public:
    RowUnderEdit() = default;
    RowUnderEdit(Currency line, Row stored) : line_(line), stored_(std::move(stored)) {}
    // 0 on a table without LineNum.
    Currency Line() const { return line_; }
    // False for a row that is still to be made.
    bool Exists() const { return static_cast<bool>(stored_); }
    const Value& operator[](std::string_view field) const {
        const auto entered = entered_.find(field);
        return entered == entered_.end() ? stored_[field] : entered->second;
    }
    // As the table holds it, whatever was entered since.
    const Value& Stored(std::string_view field) const { return stored_[field]; }
    const Row& Stored() const { return stored_; }
    void Set(std::string_view field, Value value) { entered_.insert_or_assign(std::string(field), std::move(value)); }
    const std::map<std::string, Value, LessText>& Entered() const { return entered_; }

  private:
    Currency line_;
    Row stored_;
    std::map<std::string, Value, LessText> entered_;
};

// The cell that a rule is asked about. `talk` is for checks: it reaches the person who entered the cell.
struct CellPlace {
    const Item& item;
    const GridColumn& column;
    const RowUnderEdit& row;
    EntryTalk talk = {};
};
// The row that a rule is asked about, under the columns of its form.
struct RowPlace {
    const Item& item;
    std::span<const GridColumn> columns;
    const RowUnderEdit& row;
    EntryTalk talk = {};
};

// A pop-up list. An entry writes `value` into the cell, which then reads as `shown`.
struct PopupEntry {
    std::string_view control;  // "mnuY"
    std::string_view caption;
    std::string_view value;
    std::string_view shown;
};
struct PopupList {
    std::string_view name;  // "ButtonListYN"
    std::span<const PopupEntry> entries;
};

// An entry of a list that is made of the report: what it writes into the cell, and how the list shows it.
struct CellChoice {
    std::string value, caption;
};

// The fields of a row that Add makes, and what they start with: "LineNum, Col_4, Col_7" and "0, 0".
struct NewRow {
    std::string_view fields;
    std::string_view values;
};

// A table beside the form's own that changes with its rows, and goes back with them when they are taken back. With
// `rowField` it holds rows of the line, which the form's check writes (B1X); without, it follows what was stored (C
// Part II follows the codes).
struct SideTable {
    ItemPattern tables;
    std::string_view rowField = {};
    Currency ofLine = {};  // that changes it; 0: any
};

// A text of one row that is shown above the grid and not in it.
struct TextAbove {
    std::string_view control;  // "tbCounty"
    std::string_view labelControl;
    std::string_view label;
    Currency line;
    std::string_view field;
};

// A sum at the foot of an edit form: of what is keyed in the lines, `less` those that are taken off.
struct FootSum {
    std::string_view label;
    LineRange lines;
    std::span<const Currency> less = {};
};

// A total of a view form, whose lines the person may have marked: chosen by `button` ("Button29") of a menu.
struct LineSet {
    std::string_view button;
    Currency total;
    std::array<Currency, 2> parts;  // the lines that it is the sum of
};

// A rule that is null asks for nothing. Texts that say why are those of screens/lock_reasons.h or of their kind.
struct ColumnRules {
    std::span<const FormColumn> described = {};
    // Columns that hang on the report, behind the others.
    std::vector<GridColumn> (*more)(const Item&) = nullptr;
    // Why the column is not shown in this year; empty: it is.
    std::string_view (*hidden)(std::string_view field) = nullptr;
    // The labels of the columns while the cursor is in a row; empty: the heads stay.
    std::span<const std::string_view> (*headsAt)(Currency line) = nullptr;
};

struct CellRules {
    // A Null cell is a shaded one and takes nothing.
    bool nullIsShaded = false;
    // Why the cell takes nothing; empty: it is open.
    std::string_view (*locked)(const CellPlace&) = nullptr;
    // The same of a cell that does not apply for now: it still takes a blank, where it holds something.
    std::string_view (*closed)(const CellPlace&) = nullptr;
    // Checks cells of kind Own.
    CellResult (*check)(const CellPlace&, std::string_view text) = nullptr;
    // The row goes into the table with this cell, and does not wait for the cursor to leave it.
    bool (*storedAtOnce)(const CellPlace&) = nullptr;
    // The list that opens over a cell; null where it has none.
    const PopupList* (*popup)(const CellPlace&) = nullptr;
    // The list of a cell that opens when it is asked for, and narrows to what is typed; empty where it has none.
    std::vector<CellChoice> (*choices)(const CellPlace&) = nullptr;
    // Answers that are amounts: text in the table, read as figures are.
    bool (*isAmount)(const CellPlace&) = nullptr;
};

struct RowRules {
    // What holds the cursor in the row.
    std::optional<Refusal> (*leave)(const RowPlace&) = nullptr;
    // Stores the row by a way of its own, in one step of the file; false: it goes into the table as any other. Throws
    // DbError; nothing is stored then.
    bool (*store)(const RowPlace&) = nullptr;
    // After the row went into the table.
    void (*stored)(const RowPlace&) = nullptr;
    // What a person should know of a row that has been stored; empty: nothing.
    std::string (*storedNote)(const RowUnderEdit&) = nullptr;
    // What other worksheets take from this one, after rows were stored: the grid has it follow each row, a list of
    // cells once.
    void (*follow)() = nullptr;
    // As the form closes. What it dropped, a sentence each.
    std::vector<std::string> (*closing)(const Item&) = nullptr;
    std::span<const SideTable> sides = {};
    // Asked before former values, entered in the row, are stored again. False: the row stays as it is.
    bool (*mayUndo)(const RowPlace&) = nullptr;
};

// Lines that are not shown, come and go.
struct LineRules {
    // Why a line of the table is not among the rows. Null: it is computed.
    std::string_view (*notShown)(Currency line) = nullptr;
    // The line that Add could make where `line`, which is not there, would be; nothing where Add makes none.
    std::optional<Currency> (*next)(const Item&, Currency line) = nullptr;
    NewRow newRow = {};
    // What a row that was made has beyond `newRow`.
    void (*made)(const Item&, Currency line) = nullptr;
    // cmdAdd, on the row of line `current` (0 without one): the line of the new row. Null: the button is not shown.
    Currency (*add)(const Item&, Currency current) = nullptr;
    // cmdDelete. Null: not shown.
    void (*remove)(const Item&, Currency line) = nullptr;
    // Asked before that. False: the row stays.
    bool (*mayRemove)(const Item&, Currency line, const EntryTalk& talk) = nullptr;
};

// What a form's window has beside its grid.
struct WindowParts {
    const TextAbove* above = nullptr;
    std::span<const FootSum> foot = {};
    std::span<const LineSet> lineSets = {};
    // Shown while the rows are read, which takes long.
    std::string_view building = {};
    bool statLinks = false;  // cmdStatLinks
    // The window stays open, and reads its rows again, when the identity of the report changes.
    bool showsIdentity = false;
};

struct FormDescription {
    std::string_view name;               // "frmEditA"
    std::string_view table = {};         // empty: the item names it
    std::string_view where = {};         // the rows shown; empty: all
    std::string_view order = "LineNum";  // empty: the table has no LineNum
    bool readOnly = false;               // a view form
    ColumnRules columns = {};
    CellRules cells = {};
    RowRules rows = {};
    LineRules lines = {};
    WindowParts window = {};
};

std::string Form_Table(const FormDescription& form, const Item& item);
// "SELECT * FROM A WHERE LineNum < 29 ORDER BY LineNum;"
std::string Form_Query(const FormDescription& form, const Item& item);
// The row of one line, where the form shows it; on a table without LineNum its first row.
std::string Row_Query(const FormDescription& form, const Item& item, Currency line);

}  // namespace tallmar
