#include "report/step.h"

#include <exception>

#include "common/db/error.h"
#include "common/text.h"
#include "report/message_log.h"

namespace tallmar {

namespace {

// No next worksheet can do better than this one did.
bool Is_File_Trouble(const std::exception& error) {
    const auto* dbError = dynamic_cast<const DbError*>(&error);
    return dbError != nullptr && dbError->Ends_Work();
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
        // The log takes no double quotes.
        Report_Msg(Replace(error.what(), "\"", "'"), kStop, "Error: Worksheet " + item.Name());
        return false;
    }
}

}  // namespace tallmar
