#include "report/code_lists.h"

#include "common/format.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

std::string Code(const Value& typed, std::string_view format) {
    const std::string text(Trim(Nz_Str(typed)));
    const bool isNumber = text.find_first_not_of("0123456789") == std::string::npos;
    // "1E05" is a code and no number.
    return isNumber && !text.empty() ? Format(Value(text), format) : To_Upper(text);
}

}  // namespace

std::string MSA_Code(const Value& typed) {
    return Code(typed, "0000");
}
std::string CBSA_Code(const Value& typed) {
    return Code(typed, "00000");
}

void Load_MSA() {
    gblMSACodes.clear();
    gblCBSACodes.clear();
    try {
        Recordset codes = db.OpenRecordset("SELECT Col_1, Col_2 From S3p3 WHERE int([LineNum])>=29 Order By LineNum;",
                                           RecordsetType::Snapshot);
        for (; !codes.Eof(); codes.MoveNext()) {
            if (!Is_Blank(codes["Col_1"])) gblMSACodes.push_back(MSA_Code(codes["Col_1"]));
            if (!Is_Blank(codes["Col_2"])) gblCBSACodes.push_back(CBSA_Code(codes["Col_2"]));
        }
    } catch (const DbError& error) {  // a report without the worksheet has no codes
        if (error.Ends_Work()) throw;
    }
}

}  // namespace tallmar
