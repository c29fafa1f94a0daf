// The forms of every worksheet, one row a family, and of the tables that are no worksheets.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/item.h"

namespace tallmar {

struct FormDescription;

enum class FormMode : std::uint8_t { Edit, View };

struct WorksheetForms {
    ItemPattern items;  // those of the family
    const FormDescription* edit;
    const FormDescription* view;
    std::string_view title = {};  // as the form calls it, for lists that a person searches: "Reclassifications" of A4
    // Why there is and will be no such form. Empty beside a null: it is not built yet.
    std::string_view noEdit = {};
    std::string_view noView = {};
};

// The program's table. No pattern matches an item of another row.
std::span<const WorksheetForms> All_Forms();
// Another table in its place, for a test; the former one is the result. The table must outlive its installation.
std::span<const WorksheetForms> Install_Forms(std::span<const WorksheetForms> forms);

// Null where the table has no such item.
const WorksheetForms* Find_Forms(const Item& item);
// Null where there is none.
const FormDescription* Form_Of(FormMode mode, const Item& item);
// A worksheet that is not keyed: no list of worksheets to edit has it.
bool Has_No_Edit_Form(const Item& item);
// Empty where the form gives no name.
std::string_view Worksheet_Title(const Item& item);

}  // namespace tallmar
