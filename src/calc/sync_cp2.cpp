#include "calc/sync_cp2.h"

#include <algorithm>
#include <string>
#include <vector>

#include "calc/w_c.h"
#include "calc/w_s3.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/build_worksheet.h"
#include "report/code_lists.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/step.h"

namespace tallmar {

namespace {

// The codes of line 29 in the order of the list: those of MSAs, then those of CBSAs.
std::vector<CodeOfArea> Read_Codes() {
    std::vector<CodeOfArea> msas, cbsas;
    Recordset rows = db.OpenRecordset("Select Col_1, Col_2 From S3p3 Where Int([LineNum]) = 29 Order By LineNum;",
                                      RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        if (!Is_Blank(rows["Col_1"])) msas.push_back({MSA_Code(rows["Col_1"]), false});
        if (!Is_Blank(rows["Col_2"])) cbsas.push_back({CBSA_Code(rows["Col_2"]), true});
    }
    msas.insert(msas.end(), cbsas.begin(), cbsas.end());
    // A code that is listed twice has one instance and one line.
    std::vector<CodeOfArea> codes;
    for (const CodeOfArea& code : msas) {
        const auto same = [&](const CodeOfArea& c) { return c.isCBSA == code.isCBSA && Same_Text(c.code, code.code); };
        if (std::ranges::none_of(codes, same)) codes.push_back(code);
    }
    return codes;
}

std::string Instance_Of(const CodeOfArea& code) {
    return code.isCBSA ? Cp2_Item_Of_CBSA(code.code) : Cp2_Item_Of_MSA(code.code);
}

// Instances whose code is no longer listed.
void Drop_Instances(const std::vector<std::string>& listed, const char* select) {
    for (const std::string& item : Read_Items(select)) {
        const auto same = [&](const std::string& name) { return Same_Text(name, item); };
        if (std::ranges::none_of(listed, same)) Drop_Worksheet(item);
    }
}

}  // namespace

void Sync_Cp2() {
    if (!TableExists("Cp4", true) || !TableExists("S3p3", true)) return;
    const std::vector<CodeOfArea> codes = Read_Codes();
    std::vector<std::string> listed;
    for (const CodeOfArea& code : codes) {
        const std::string item = Instance_Of(code);
        listed.push_back(item);
        // A code that cannot name a table is reported and keeps no other from its instance.
        if (!TableExists(item, true)) Run_Step(item, [&] { Build_Worksheet(item); });
    }
    Drop_Instances(listed, "SELECT Item FROM Worksheets WHERE Item Like(\"Cp2m*\");");
    Drop_Instances(listed, "SELECT Item FROM Worksheets WHERE Item Like(\"Cp2c*\");");
    Sync_Cp4_Codes(codes);
    Store_Code_Counts();
}

}  // namespace tallmar
