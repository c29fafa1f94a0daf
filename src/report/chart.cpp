#include "report/chart.h"

#include "common/dates.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/message_log.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/tables.h"

namespace tallmar {

namespace {

constexpr Column kChartFields[] = {
    {"LineNum", FieldType::Currency},   {"CCNum", FieldType::Currency},      {"CCName", FieldType::Text, 40},
    {"CCGroup", FieldType::Integer},    {"CCType", FieldType::Text, 1},      {"LineType", FieldType::Text, 1},
    {"MaxLines", FieldType::Integer},   {"ColLabel1", FieldType::Text, 16},  {"ColLabel2", FieldType::Text, 16},
    {"ColLabel3", FieldType::Text, 16}, {"StatLabel1", FieldType::Text, 16}, {"StatLabel2", FieldType::Text, 16},
    {"StatCode", FieldType::Integer},
};

// General service cost centers come with the labels of their columns.
constexpr std::string_view kLabelledHead =
    "INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,CCName,MaxLines,StatCode,StatLabel1,StatLabel2,"
    "ColLabel1,ColLabel2,ColLabel3) VALUES (";
constexpr std::string_view kLabelledRows[] = {
    "1,'S',01.00,0100,'G','Cap Rel Costs-Bldg & Fixt',19,1,'(Square','Feet)','Cap Rel','Bldgs &','Fixtures');",
    "2,'S',02.00,0200,'G','Cap Rel Costs-Mvble Equip',19,1,'(Square','Feet)','Cap Rel','Movable','Equipment');",
    "3,'S',03.00,0300,'G','Plant Operation And Maintenance',19,1,'(Square','Feet)','Plant','Operation','& Maint');",
    "4,'S',04.00,0400,'G','Transportation',9,4,'(Mileage)',' ','Trans-','portation',' ');",
    "5,'S',05.00,0500,'G','Administrative & General',0,3,'(Accumulated','Cost)','Adminis-','trative &','General');",
};

constexpr std::string_view kHead =
    "INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,MaxLines,CCName) VALUES (";
constexpr std::string_view kRows[] = {
    "6,'S',6.00,0600,'A',0,'Skilled Nursing Care');",
    "7,'S',7.00,0700,'A',0,'Physical Therapy');",
    "8,'S',8.00,0800,'A',0,'Occupational Therapy');",
    "9,'S',9.00,0900,'A',0,'Speech Pathology');",
    "10,'S',10.00,1000,'A',0,'Medical Social Services');",
    "11,'S',11.00,1100,'A',0,'Home Health Aide');",
    "12,'S',12.00,1200,'A',9,'Supplies');",
    "13,'S',13.00,1300,'A',9,'Drugs');",
    "14,'S',14.00,1400,'A',9,'DME');",
    "15,'S',15.00,1500,'A',9,'Home Dialysis Aide Services');",
    "16,'S',16.00,1600,'A',9,'Respiratory Therapy');",
    "17,'S',17.00,1700,'A',9,'Private Duty Nursing');",
    "18,'S',18.00,1800,'A',9,'Clinic');",
    "19,'S',19.00,1900,'A',9,'Health Promotion Activities');",
    "20,'S',20.00,2000,'A',9,'Day Care Program');",
    "21,'S',21.00,2100,'A',9,'Home Delivered Meals Program');",
    "22,'S',22.00,2200,'A',9,'Homemaker Service');",
    "23,'S',23.00,2300,'A',9,'Other Nonreimbursable');",
    "23.2,'S',23.20,2320,'A',9,'Other Nonreimbursable Tele-Medicine');",
};
constexpr std::string_view kVaccineRow = "13.2,'S',13.20,1320,'A',9,'Cost of Administering Vaccines');";
// A report that gets the line later may not divide it.
constexpr std::string_view kVaccineUpgradeRow = "13.2,'S',13.20,1320,'A',0,'Cost of Administering Vaccines');";

constexpr std::string_view kDeletedHead =
    "INSERT INTO DeletedCCs (LineNum,LineType,CCNum,CCGroup,CCType,MaxLines,CCName) VALUES (";
constexpr std::string_view kHospiceRow = "25,'S',25.00,2500,'A',9,'Hospice');";
constexpr std::string_view kTelemedicineRow = "23.2,'S',23.20,2320,'A',9,'Other Nonreimbursable Tele-Medicine');";

constexpr std::string_view kOption1Message =
    "Worksheet S-2 line 26 specifies option 1.  This requires that Administrative & General cost centers 5.01, 5.02, "
    "and 5.03 be defined, and that there are no other cost centers between 5.00 and 5.19. Also, these cost centers "
    "must use accumulated cost and have group codes 0523, 0521, and 0522 respectively.";
constexpr std::string_view kOption0Message =
    "Worksheet S-2 line 26 specifies option 0.  This requires that Administrative & General cost center 5.00 be "
    "defined, and that it is the only cost center between 5.00 and 5.19. Also, cost center 5.00 must use accumulated "
    "cost and have group code 500.";
constexpr std::string_view kNoOptionMessage =
    "Worksheet S-2 line 26 does not specify a correct option, please correct on form S2.";

struct AGChart {
    int option;
    std::string_view lines, groups, message;
};
constexpr AGChart kAGCharts[] = {
    {1, "5.01 5.02 5.03 ", "523 521 522 ", kOption1Message},
    {0, "5 ", "500 ", kOption0Message},
};

constexpr std::string_view kSublinesMessage =
    "Cost centers 12, 13 and 14 are not allowed to be subscripted for cost reporting periods that span 10/1/2000.  "
    "Please remove the subscripted lines for cost centers 12, 13 and 14.";

std::int32_t Count(std::string_view select) {
    return db.Read_Row(select)["Cnt"].To_Long();
}

bool Telemedicine_Is_Missing() {
    return Count("SELECT Count(*) as Cnt From CostCenters WHERE LineNum = 23.2;") == 0 &&
           Count("SELECT Count(*) as Cnt From DeletedCCs WHERE LineNum = 23.2;") == 0;
}

bool Vaccine_Line_Is_Missing() {
    return openReport.FYEnd >= kVaccineLineFrom &&
           Count("SELECT Count(LineNum) AS Cnt From CostCenters WHERE LineNum=13.2;") == 0;
}

}  // namespace

void Build_CC() {
    Create_Table("CostCenters", kChartFields);
    for (const std::string_view row : kLabelledRows) db.Execute(Sql(kLabelledHead, row));
    for (const std::string_view row : kRows) db.Execute(Sql(kHead, row));
    if (openReport.FYEnd >= kVaccineLineFrom) db.Execute(Sql(kHead, kVaccineRow));
    db.Execute("SELECT CostCenters.* INTO DeletedCCs FROM CostCenters Where LineNum = 0;");
    db.Execute(Sql(kDeletedHead, kHospiceRow));
    Edit_Worksheets("CostCenters", "Make", kInternalLevel);
    Edit_Worksheets("DeletedCCs", "Make", kInternalLevel);
}

std::string CostCenterName(Currency lineNum) {
    const Row row = db.Read_Row(Sql("Select CCName From CostCenters Where LineNum = ", lineNum, ";"));
    return row ? Nz_Str(row["CCName"]) : "";
}

std::string CheckAGCostCenters() {
    std::string lines, groups;
    Recordset chart = db.OpenRecordset(
        "SELECT LineNum, CCGroup From CostCenters Where (((LineNum) >= 5 And (LineNum) < 6) And "
        "((InStr(UCase([StatLabel1]), \"ACCUM\")) > 0) And ((InStr(UCase([StatLabel2]), \"COST\")) > 0)) "
        "ORDER BY LineNum;",
        RecordsetType::Snapshot);
    for (; !chart.Eof(); chart.MoveNext()) {
        lines += chart["LineNum"].To_Text() + " ";
        groups += chart["CCGroup"].To_Text() + " ";
    }
    chart.Close();
    for (const AGChart& required : kAGCharts) {
        if (required.option != openReport.AGOption) continue;
        const bool fits = lines == required.lines && groups == required.groups;
        return std::string(fits ? std::string_view{} : required.message);
    }
    return std::string(kNoOptionMessage);
}

void Store_CC_Counts() {
    const std::int32_t all = Count("SELECT Count(*) AS Cnt FROM CostCenters;");
    const std::int32_t general = Count("SELECT Count(*) AS Cnt FROM CostCenters WHERE CCType='G';");
    const std::int32_t capital = Count("SELECT Count(*) AS Cnt FROM CostCenters WHERE Int(LineNum) In (1, 2);");
    db.Execute(
        Sql("UPDATE Master SET AllCCs=", all, ", GenSvcCCs=", general, ", CapitalCCs=", capital, ", EmpBenCCs=0;"));
}

bool Chart_Needs_Upgrade() {
    return Telemedicine_Is_Missing() || Vaccine_Line_Is_Missing();
}

void Upgrade_Chart() {
    if (Telemedicine_Is_Missing()) db.Execute(Sql(kDeletedHead, kTelemedicineRow));
    if (Vaccine_Line_Is_Missing()) {
        db.Execute(Sql(kHead, kVaccineUpgradeRow));
        Store_CC_Counts();
    }
}

void Tell_Forbidden_Sublines() {
    const bool spans =
        openReport.FYStart != Date{} && openReport.FYStart < kCostLimitsEnd && openReport.FYEnd >= kCostLimitsEnd;
    if (!spans) return;
    if (Count("Select Count(*) as Cnt From CostCenters Where LineNum >= 12 and LineNum < 15 and LineNum <> "
              "Int(LineNum);") > 0) {
        Report_Msg(kSublinesMessage, kOkOnly, "CMS Requirement");
    }
}

}  // namespace tallmar
