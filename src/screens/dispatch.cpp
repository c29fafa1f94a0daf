#include "screens/dispatch.h"

#include <algorithm>
#include <array>

#include "calc/worksheet.h"
#include "common/dates.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/worksheets.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "screens/forms.h"

namespace tallmar {

namespace {

// Tables that have a form and are no worksheets.
struct OtherForm {
    std::string_view item;
    const FormDescription* edit;
    const FormDescription* view;
};
constexpr std::array kOtherForms{
    OtherForm{"CCs", nullptr, &kViewCCs},
    OtherForm{"HeaderLines", &kHeaderLines, nullptr},
};

const OtherForm* Find_Other(const Item& item) {
    const auto found = std::ranges::find(kOtherForms, item.Name(), &OtherForm::item);
    return found == kOtherForms.end() ? nullptr : &*found;
}

// Where the item stands in a caption, behind "Edit Worksheet ".
constexpr std::size_t kItemAt = 15;
constexpr std::string_view kEditWord = "Edit";
constexpr std::string_view kViewWord = "View";

// Why the walk passes a worksheet over.
enum class Passed : std::uint8_t {
    AfterLimits,   // the fiscal year starts on or after 10/1/2000
    BeforeLimits,  // it ends before
    NoEditForm,
    FromOutside,  // the walk does not come from this family
};
struct PassedOver {
    ItemPattern items;
    Passed when;
    bool view;  // in view mode too
};
constexpr std::array kPassedOver{
    PassedOver{"S3p4", Passed::BeforeLimits, false}, PassedOver{"A1", Passed::AfterLimits, true},
    PassedOver{"A2", Passed::AfterLimits, true},     PassedOver{"A3", Passed::AfterLimits, true},
    PassedOver{"A83*", Passed::AfterLimits, true},   PassedOver{"Cp4", Passed::AfterLimits, false},
    PassedOver{"S5?2*", Passed::FromOutside, false}, PassedOver{"Cp1", Passed::NoEditForm, false},
    PassedOver{"A83p2*", Passed::NoEditForm, false}, PassedOver{"A83p3*", Passed::NoEditForm, false},
    PassedOver{"B", Passed::NoEditForm, false},      PassedOver{"K4p1*", Passed::NoEditForm, false},
    PassedOver{"K5p1*", Passed::NoEditForm, false},  PassedOver{"K6*", Passed::NoEditForm, false},
    PassedOver{"O5*", Passed::NoEditForm, false},    PassedOver{"O6p1*", Passed::NoEditForm, false},
    PassedOver{"O8*", Passed::NoEditForm, false},    PassedOver{"Sp2", Passed::NoEditForm, false},
};
constexpr std::string_view kPassedFamily = "S5";

// From a worksheet of a hospice series the walk stays among that series and its statistics.
struct HospiceSeries {
    std::string_view from;
    std::array<std::string_view, 3> to;
};
constexpr std::array kHospiceSeries{
    HospiceSeries{"K", {"K", "S5p1", "S5p2"}},
    HospiceSeries{"O", {"O", "S5p3", "S5p4"}},
};

bool Holds(Passed when, std::string_view from) {
    switch (when) {
        case Passed::AfterLimits:
            return openReport.FYStart >= kCostLimitsEnd;
        case Passed::BeforeLimits:
            return openReport.FYEnd < kCostLimitsEnd;
        case Passed::NoEditForm:
            return true;
        case Passed::FromOutside:
            return !Begins_With(from, kPassedFamily);
    }
    return false;
}

bool Is_Passed_Over(FormMode mode, std::string_view from, std::string_view item) {
    const auto passes = [&](const PassedOver& rule) {
        return (mode == FormMode::Edit || rule.view) && rule.items.Matches(item) && Holds(rule.when, from);
    };
    if (std::ranges::any_of(kPassedOver, passes)) return true;
    for (const HospiceSeries& series : kHospiceSeries) {
        if (!Begins_With(from, series.from)) continue;
        return std::ranges::none_of(series.to, [&](std::string_view start) { return Begins_With(item, start); });
    }
    return false;
}

std::string_view Word_Of(FormMode mode) {
    return mode == FormMode::Edit ? kEditWord : kViewWord;
}

}  // namespace

const FormDescription* Form_Of(FormMode mode, const Item& item) {
    const bool edit = mode == FormMode::Edit;
    if (const WorksheetFamily* family = Find_Family(item)) return edit ? family->edit : family->view;
    const OtherForm* other = Find_Other(item);
    if (other == nullptr) return nullptr;
    return edit ? other->edit : other->view;
}

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
    if (from.Name().empty() || Find_Other(from) != nullptr || !db.Is_Open()) return {};
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
