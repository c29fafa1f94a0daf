#include "screens/dispatch.h"

#include <algorithm>
#include <array>

#include "common/sql_text.h"
#include "common/text.h"
#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/year_rules.h"

namespace tallmar {

namespace {

// Where the item is in a caption, behind "Edit Worksheet ".
constexpr std::size_t kItemAt = 15;
constexpr std::string_view kEditWord = "Edit";
constexpr std::string_view kViewWord = "View";

// The census of a hospice is entered from its own family alone.
constexpr ItemPattern kCensus("S5?2*");
constexpr std::string_view kCensusFamily = "S5";

// From a worksheet of a hospice series the walk stays among that series and its statistics.
struct HospiceSeries {
    std::string_view from;
    std::array<std::string_view, 3> to;
};
constexpr std::array kHospiceSeries{
    HospiceSeries{"K", {"K", "S5p1", "S5p2"}},
    HospiceSeries{"O", {"O", "S5p3", "S5p4"}},
};

bool Is_Passed_Over(FormMode mode, std::string_view from, const std::string& item) {
    if (Year_Leaves_Out(WorksheetList::Walk, mode, item)) return true;
    if (mode == FormMode::Edit && Has_No_Edit_Form(item)) return true;
    if (mode == FormMode::Edit && kCensus.Matches(item) && !Begins_With(from, kCensusFamily)) return true;
    for (const HospiceSeries& series : kHospiceSeries) {
        if (!Begins_With(from, series.from)) continue;
        return std::ranges::none_of(series.to, [&](std::string_view start) { return Begins_With(item, start); });
    }
    return false;
}

// A table with a form that is no worksheet has no neighbours.
bool Is_No_Worksheet(const Item& item) {
    const WorksheetForms* forms = Find_Forms(item);
    return forms != nullptr && (forms->edit != nullptr || forms->view != nullptr) && Find_Family(item) == nullptr;
}

std::string_view Word_Of(FormMode mode) {
    return mode == FormMode::Edit ? kEditWord : kViewWord;
}

}  // namespace

const FormDescription* Form_To_Open(FormMode mode, const Item& item) {
    const FormDescription* form = Form_Of(mode, item);
    if (form == nullptr || !db.Is_Open() || !Is_Registered_Table(Form_Table(*form, item))) return nullptr;
    return form;
}

std::string Unknown_Worksheet(FormMode mode, std::string_view item) {
    return Sql("Unknown worksheet requested (", item, ") for ", To_Lower(Word_Of(mode)));
}

std::string Form_Caption(FormMode mode, const Item& item) {
    return Sql(Word_Of(mode), " Worksheet ", item.Name());
}

FormMode Mode_Of_Caption(std::string_view caption) {
    return Begins_With(caption, kEditWord) ? FormMode::Edit : FormMode::View;
}

Item Item_Of_Caption(std::string_view caption) {
    return std::string(caption.size() > kItemAt ? caption.substr(kItemAt) : "");
}

std::string Next_Worksheet(std::string_view caption, Direction direction) {
    const Item from = Item_Of_Caption(caption);
    if (from.Name().empty() || Is_No_Worksheet(from) || !db.Is_Open()) return {};
    const bool next = direction == Direction::Next;
    const std::string select =
        Sql("SELECT Item From Worksheets Where Calc_Lvl < 900 And (((ItemName) ", next ? ">" : "<", " ",
            Quoted(WorksheetName(from.Name())), ")) ORDER BY ItemName ", next ? "" : "DESC", ";");
    const FormMode mode = Mode_Of_Caption(caption);
    for (std::string& item : Read_Items(select)) {
        if (!Is_Passed_Over(mode, from.Name(), item)) return std::move(item);
    }
    return {};
}

std::string Neighbour_Tip(std::string_view caption, Direction direction) {
    const std::string item = Next_Worksheet(caption, direction);
    if (item.empty()) return {};
    return Sql("Open ", WorksheetName(item), " For ", caption.substr(0, kEditWord.size()));
}

std::string Record_Status(std::size_t position, std::size_t count) {
    if (count == 0) return "Record: 0";
    std::string status = "Record: " + std::to_string(position + 1);
    if (position == 0) status += " (First record)";
    if (position + 1 == count) status += " (Last record)";
    return status;
}

}  // namespace tallmar
