// The registry of worksheets: which tables exist, in what order they calculate, and how they are called.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"

namespace tallmar {

// Levels from here on are tables that no user sees.
inline constexpr int kInternalLevel = 999;

// The table, its own row and its index.
void Build_Worksheets();
// Stamps a row: "Make" (value: the level), "Chng", "Save", "Calc" (value: the error count), "Prnt", "Kill". Only
// "Make" adds a row and revives a killed one; the others beep where there is none.
void Edit_Worksheets(std::string_view item, std::string_view action, int value = 0);
// The display name: "K4p2h0" is "K-4  Hospice-0  Part-2". Unknown letters are reported and passed over.
std::string WorksheetName(std::string_view item);
// True where the table is there, and with `inRegistry` registered. A table that should be registered and is not is
// left over from an interrupted job: it is deleted, and the answer is False.
bool TableExists(std::string_view name, bool inRegistry);
// True where the table is there and registered, as a worksheet or as an internal table. Deletes nothing.
bool Is_Registered_Table(std::string_view name);
// The Items that a SELECT over the registry names, in its order.
std::vector<std::string> Read_Items(std::string_view select);
// Deletes a worksheet's table, where it is there, and its row of the registry.
void Drop_Worksheet(std::string_view item);
// Without regard to case.
bool Field_Exists(const Recordset& recordset, std::string_view name);

}  // namespace tallmar
