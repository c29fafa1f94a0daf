#include "report/step.h"

#include <exception>
#include <stdexcept>
#include <string>

#include "common/db_error.h"
#include "common/text.h"
#include "report/message_log.h"

namespace tallmar {

namespace {

// No next worksheet can do better than this one did.
bool Is_File_Trouble(const std::exception& error) {
    const auto* dbError = dynamic_cast<const DbError*>(&error);
    return dbError != nullptr && dbError->Ends_Work();
}

// What a step's error says in the log, which takes no double quotes. Behind an overflow the figures are those of
// another run: the report goes on with them, and that is not to be seen from the figures.
std::string Text_Of(const Item& item, const std::exception& error) {
    const auto* dbError = dynamic_cast<const DbError*>(&error);
    const bool overflow = dbError != nullptr ? dbError->Code() == DbErrorCode::Overflow
                                             : dynamic_cast<const std::overflow_error*>(&error) != nullptr;
    std::string text = Replace(error.what(), "\"", "'");
    if (!overflow) return text;
    if (dbError == nullptr || dbError->Where().table.empty()) text += " in a figure of worksheet " + item.Name();
    return text + ".  Worksheet " + item.Name() +
           " was not calculated to its end: some of its figures, and of those that follow from them, are of an "
           "earlier calculation.";
}

}  // namespace

bool Run_Step(const Item& item, const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (Is_File_Trouble(error)) throw;
        Report_Error(item, Text_Of(item, error));
        return false;
    }
}

}  // namespace tallmar
