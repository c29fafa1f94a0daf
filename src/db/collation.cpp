#include "db/collation.h"

#include <sqlite3.h>

#include "common/text.h"

namespace tallmar {

namespace {

std::string_view View(const void* bytes, int count) {
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(count)};
}

int Compare(void*, int leftCount, const void* left, int rightCount, const void* right) noexcept {
    return Compare_Text(View(left, leftCount), View(right, rightCount));
}

}  // namespace

bool Register_Collation(sqlite3* handle) {
    return sqlite3_create_collation_v2(handle, kTextCollation, SQLITE_UTF8, nullptr, Compare, nullptr) == SQLITE_OK;
}

}  // namespace tallmar
