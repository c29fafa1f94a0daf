#include "common/worksheets.h"

namespace tallmar {

namespace {
std::span<const WorksheetFamily> installed;
}

void Install_Catalogue(std::span<const WorksheetFamily> families) {
    installed = families;
}

std::span<const WorksheetFamily> Installed_Families() {
    return installed;
}

const WorksheetFamily* Find_Family(const Item& item) {
    for (const WorksheetFamily& family : installed) {
        if (family.items.Matches(item.Name())) return &family;
    }
    return nullptr;
}

}  // namespace tallmar
