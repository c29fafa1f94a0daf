#include <algorithm>
#include <array>

#include "calc/w_c.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/code_lists.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"},
    Column{"Description", FieldType::Text, 54},
    Column{"MSA_Code", FieldType::Text, 6},
    Column{"Col_1"},
    Column{"Col_2"},
    Column{"Col_3"},
    Column{"Col_4"},
    Column{"Col_5"},
    Column{"Col_6"},
};

}  // namespace

constexpr std::array<FixedRow, 7> kLinesCp4{{
    {17_cur, "Total Cost of Medicare Services", "0,0,0", LineKind::Total},
    {18_cur, "Cost of Medicare Supplies", "0,0,0"},
    {19_cur, "Total", "Null,Null,Null", LineKind::Total},
    {20_cur, "Total Cost Per Visit Limitation for Medicare Services", "0,0,0", LineKind::Total},
    {21_cur, "Cost of Medical Supplies", "0,0,0"},
    {22_cur, "Total", "Null,Null,Null", LineKind::Total},
    {24_cur, "Aggregate Per Beneficiary Cost Limitation", "Null,Null,Null"},
}};

namespace {

constexpr const char* kMSALabel = "Per Beneficiary Cost Limitation for MSA: ";
constexpr const char* kCBSALabel = "Per Beneficiary cost Limitation for CBSA:";

constexpr std::array<std::string_view, 3> kCosts{"Col_3", "Col_4", "Col_6"};
constexpr std::array<std::string_view, 2> kCensusAndLimit{"Col_1", "Col_6"};

// Part A, Part B and total, of one or all instances of Part II.
struct MedicareCost {
    Currency partA, partB, total;

    void Add(const Row& row) {
        if (!row) return;
        partA += Nz_Currency(row[0]);
        partB += Nz_Currency(row[1]);
        total += Nz_Currency(row[2]);
    }
};

void Store_Cost(const MedicareCost& cost, const char* lines) {
    db.Execute(Sql("UPDATE CP4 SET Col_3=", cost.partA, ", Col_4=", cost.partB, ", Col_6=", cost.total,
                   " WHERE LineNum ", lines, ";"));
}

void Insert_Code_Line(int serial, const CodeOfArea& code, const Value& census, const Value& limit,
                      const Value& product) {
    db.Execute(Sql("INSERT INTO Cp4 (LineNum, Description, MSA_Code, Col_1, Col_2, Col_6) VALUES (",
                   23_cur + Currency::From_Scaled(serial * 100), ",", Quoted(code.isCBSA ? kCBSALabel : kMSALabel), ",",
                   Quoted(code.code), ",", census, ",", limit, ",", product, ");"));
}

// The limits of the period end on 10/1/2000: their lines show nothing.
constexpr std::array kClearCodes{
    "UPDATE Cp4 SET MSA_Code = Null, Col_1 = 0, Col_2 = 0, Col_3 = 0, Col_4 = 0, Col_5 = 0, Col_6 = 0 WHERE "
    "LineNum>=23;",
};
constexpr std::array kClearLimits{
    "UPDATE Cp4 SET Col_3 = 0, Col_4 = 0, Col_6 = 0 WHERE LineNum>=20 And LineNum<24;",
    "UPDATE Cp4 SET Col_1 = 0, Col_2 = 0, Col_6 = 0 WHERE Int([LineNum])=24;",
};

}  // namespace

void Build_Cp4() {
    Create_Table("Cp4", kColumns);
    Insert_Rows("Cp4", "LineNum,Description,Col_3,Col_4,Col_6", kLinesCp4);
    Recordset codes = db.OpenRecordset("SELECT LineNum, Col_1 FROM S3p3 WHERE LineNum > 28 ORDER BY LineNum;",
                                       RecordsetType::Snapshot);
    for (int serial = 1; !codes.Eof(); codes.MoveNext()) {
        // Padded as the match with the codes pads them, so that what is typed on the line stays with its code.
        const Value code = codes["Col_1"];
        Insert_Code_Line(serial++, {MSA_Code(code), false}, 0, 0, Null);
    }
    Finish_Table("Cp4", "ndx");
}

void Calc_Cp4() {
    if (!Is_Cost_Limit_Period()) Execute_All(kClearCodes);

    MedicareCost services, limitation;
    Recordset instances =
        db.OpenRecordset("Select Item From Worksheets Where Item Like(\"Cp2*\");", RecordsetType::Snapshot);
    for (; !instances.Eof(); instances.MoveNext()) {
        const std::string item = Nz_Str(instances["Item"]);
        services.Add(
            db.Read_Row(Sql("SELECT SUM(Col_8) AS TotAmt8, SUM(Col_9) AS TotAmt9, SUM(Col_11) AS TotAmt11 FROM ", item,
                            " Where LineNum = Int(LineNum) And LineNum < 7;")));
        limitation.Add(db.Read_Row(Sql("SELECT Col_8, Col_9, Col_11 FROM ", item, " WHERE LineNum = 14;")));
    }
    instances.Close();
    Store_Cost(services, "= 17");
    Store_Cost(limitation, "= 20");

    const Row supplies = db.Read_Row("SELECT Sum(Col_8) As Sum8, Sum(Col_9) As Sum9 FROM Cp3 WHERE LineNum = 15;");
    const Currency partA = Nz_Currency(supplies["Sum8"]);
    const Currency partB = Nz_Currency(supplies["Sum9"]);
    Store_Cost({partA, partB, partA + partB}, "IN(18,21)");
    Store_Totals("Cp4", kCosts, "LineNum IN(17,18)", "LineNum = 19");
    Store_Totals("Cp4", kCosts, "LineNum IN(20,21)", "LineNum = 22");
    db.Execute("UPDATE Cp4 SET Col_6=INT((Col_1*Col_2)+.5) WHERE int(LineNum) = 23;");
    if (!Is_Cost_Limit_Period()) Execute_All(kClearLimits);
    Store_Totals("Cp4", kCensusAndLimit, "INT(LineNum)=23", "LineNum = 24");
}

void Sync_Cp4_Codes(const std::vector<CodeOfArea>& codes) {
    struct Kept {
        std::string code;  // empty where the calculation has cleared it
        Value census, limit, product;
        bool used = false;
    };
    std::vector<Kept> kept;
    Recordset rows = db.OpenRecordset(
        "SELECT LineNum, Description, MSA_Code, Col_1, Col_2, Col_6 From Cp4 WHERE (((Int([LineNum]))=23)) ORDER BY "
        "LineNum;",
        RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        kept.push_back({Nz_Str(rows["MSA_Code"]), rows["Col_1"], rows["Col_2"], rows["Col_6"]});
    }
    rows.Close();

    db.Execute("DELETE * FROM Cp4 WHERE Int([LineNum])=23;");
    for (std::size_t i = 0; i < codes.size(); ++i) {
        auto line =
            std::ranges::find_if(kept, [&](const Kept& k) { return !k.used && Same_Text(k.code, codes[i].code); });
        if (line == kept.end() && i < kept.size() && kept[i].code.empty() && !kept[i].used) {
            line = kept.begin() + static_cast<std::ptrdiff_t>(i);
        }
        const bool found = line != kept.end();
        if (found) line->used = true;
        Insert_Code_Line(static_cast<int>(i) + 1, codes[i], found ? line->census : Value(0),
                         found ? line->limit : Value(0), found ? line->product : Value(Null));
    }
}

}  // namespace tallmar
