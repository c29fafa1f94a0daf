#include "report/code_lists.h"

#include "common/format.h"
#include "common/variant.h"
#include "report/open_report.h"

namespace tallmar {

void Load_MSA() {
    gblMSACodes.clear();
    gblCBSACodes.clear();
    try {
        Recordset codes = db.OpenRecordset("SELECT Col_1, Col_2 From S3p3 WHERE int([LineNum])>=29 Order By LineNum;",
                                           RecordsetType::Snapshot);
        for (; !codes.Eof(); codes.MoveNext()) {
            if (!Is_Blank(codes["Col_1"])) gblMSACodes.push_back(Format(codes["Col_1"], "0000"));
            if (!Is_Blank(codes["Col_2"])) gblCBSACodes.push_back(Format(codes["Col_2"], "00000"));
        }
    } catch (const DbError& error) {  // a report without the worksheet has no codes
        if (error.Ends_Work()) throw;
    }
}

}  // namespace tallmar
