#include "shots/stations.h"

#include <QApplication>
#include <array>

namespace tallmar {

namespace {

// ---- Arrivals

void Stay(Desk&, const Station&) {}

// The entry of the menu that the station names.
void Trigger(Desk& desk, const Station& station) {
    desk.Trigger(station.item);
}

void Drop_Menu(Desk& desk, const Station& station) {
    desk.Drop_Menu(station.item);
}

void Open_Report(Desk& desk, const Station& station) {
    desk.Open_Report(station.item);
}

// Until the help text has scrolled into view.
void Read_Help(Desk& desk) {
    desk.Rest(std::chrono::seconds(3));
}

void Calculate_Report(Desk& desk, const Station& station) {
    Open_Report(desk, station);
    Read_Help(desk);
    desk.Trigger("mnuReportCalculate");
}

void Edit(Desk& desk, const Station& station) {
    desk.Open_Form(FormMode::Edit, station.item);
}

void View(Desk& desk, const Station& station) {
    desk.Open_Form(FormMode::View, station.item);
}

constexpr Currency kNursing = 6_cur;

void Enter_Words(Desk& desk, const Station& station) {
    Edit(desk, station);
    desk.Go_To(kNursing, "Col_1");
    desk.Type("abc");
    desk.Press(Qt::Key_Return);
}

void Enter_Cents(Desk& desk, const Station& station) {
    Edit(desk, station);
    desk.Go_To(kNursing, "Col_1");
    desk.Type("1150000.50");
    desk.Press(Qt::Key_Return);
}

void Open_Control_Types(Desk& desk, const Station& station) {
    Edit(desk, station);
    desk.Go_To(8_cur, "Col_1");
}

void Ask_For_Closing(Desk& desk, const Station& station) {
    Edit(desk, station);
    desk.Trigger("mnuViewCloseAll");
}

void Tile_Two_Forms(Desk& desk, const Station& station) {
    Edit(desk, station);
    View(desk, station);
    desk.Trigger("mnuWindowTile");
}

void Put_In_Tabs(Desk& desk, const Station& station) {
    Edit(desk, station);
    View(desk, station);
    desk.Trigger("mnuWindowTabbed");
}

void Find_Word(Desk& desk, const Station& station) {
    View(desk, station);
    desk.Trigger("mnuEditFind");
    desk.Type("aide");
    desk.Press(Qt::Key_Return);
}

void Zoom_In(Desk& desk, const Station& station) {
    View(desk, station);
    for (int step = 0; step < 4; ++step) desk.Trigger("mnuWindowZoomIn");
}

void Fill_New_Report(Desk& desk) {
    desk.Fill("txtProviderNum", "14-7100");
    desk.Fill("txtFYStart", "10/1/15");
    desk.Fill("txtFYEnd", "9/30/16");
    desk.Fill("txtFacilityName", "Prairie Hearth Home Health Agency");
}

// ---- Departures

void Escape(Desk& desk) {
    while (desk.On_Top() != nullptr) {
        QWidget* const top = desk.On_Top();
        desk.Press(Qt::Key_Escape);
        if (desk.On_Top() == top) break;
    }
}

void Close_Form(Desk& desk) {
    desk.Click("cmdClose");
}

void Escape_And_Close_Form(Desk& desk) {
    Escape(desk);
    // Out of the cell, then out of the form.
    desk.Press(Qt::Key_Escape);
    Close_Form(desk);
}

void Normal_Size(Desk& desk) {
    desk.Trigger("mnuWindowZoomNormal");
    Close_Form(desk);
}

void Close_Both_Forms(Desk& desk) {
    Close_Form(desk);
    desk.Trigger("mnuEditClose");
}

void Leave_Tabs(Desk& desk) {
    Close_Both_Forms(desk);
    desk.Trigger("mnuWindowTabbed");
}

constexpr std::array kStations{
    Station{"01-welcome", "The program without a report.", Stay},
    Station{"02-new-report", "A new report: provider, fiscal year and name, checked before the file is asked for.",
            Trigger, Escape, "mnuReportNew", Fill_New_Report},
    Station{"03-about", "The about box.", Trigger, Escape, "mnuHelpAbout"},
    Station{"04-report-open", "The sample agency is open.", Open_Report, nullptr, "fy2016.CRF", Read_Help},
    Station{"05-menu-report", "Report File. What is not built yet is grey.", Drop_Menu, Escape, "mnuReport"},
    Station{"06-identity", "The identity of the report.", Trigger, Escape, "mnuReportKey"},
    Station{"07-header-lines", "Custom lines for the head of the printed pages.", Trigger, Escape,
            "mnuReportUtilitiesHeader"},

    Station{"10-edit-a", "Worksheet A, the trial balance, under edit.", Edit, Close_Form, "A"},
    Station{"11-view-a", "Worksheet A in view, with reclassifications, adjustments and totals.", View, Close_Form, "A"},
    Station{"12-edit-a4", "Worksheet A-4, reclassifications, under edit.", Edit, Close_Form, "A4"},
    Station{"13-view-a4", "Worksheet A-4 in view.", View, Close_Form, "A4"},
    Station{"14-edit-a5", "Worksheet A-5, adjustments, under edit.", Edit, Close_Form, "A5"},
    Station{"15-view-a5", "Worksheet A-5 in view.", View, Close_Form, "A5"},
    Station{"16-edit-a6pa", "Worksheet A-6 Part A, related organizations: a yes or a no.", Edit, Escape_And_Close_Form,
            "A6pA"},
    Station{"17-edit-a6pb", "Worksheet A-6 Part B under edit.", Edit, Close_Form, "A6pB"},
    Station{"18-view-a6pb", "Worksheet A-6 Part B in view.", View, Close_Form, "A6pB"},
    Station{"19-edit-a6pc", "Worksheet A-6 Part C under edit.", Edit, Close_Form, "A6pC"},
    Station{"20-edit-a7", "Worksheet A-7, capital assets, under edit.", Edit, Close_Form, "A7"},
    Station{"21-view-a7", "Worksheet A-7 in view.", View, Close_Form, "A7"},
    Station{"22-view-b", "Worksheet B, the allocation of overhead.", View, Close_Form, "B"},
    Station{"23-edit-b1", "Worksheet B-1, the statistics of the allocation, under edit.", Edit, Close_Form, "B1"},
    Station{"24-view-b1", "Worksheet B-1 in view, with unit cost multipliers.", View, Close_Form, "B1"},
    Station{"25-view-cp1", "Worksheet C Part I, cost per visit.", View, Close_Form, "Cp1"},
    Station{"26-edit-cp2", "Worksheet C Part II of one CBSA under edit.", Edit, Close_Form, "Cp2c16580"},
    Station{"27-view-cp2", "Worksheet C Part II in view.", View, Close_Form, "Cp2c16580"},
    Station{"28-edit-cp3", "Worksheet C Part III, supplies and drugs, under edit.", Edit, Close_Form, "Cp3"},
    Station{"29-view-cp3", "Worksheet C Part III in view.", View, Close_Form, "Cp3"},
    Station{"30-edit-cp5", "Worksheet C Part V, outpatient therapy, under edit.", Edit, Close_Form, "Cp5"},
    Station{"31-view-cp5", "Worksheet C Part V in view.", View, Close_Form, "Cp5"},
    Station{"32-edit-dp1", "Worksheet D Part I under edit.", Edit, Close_Form, "Dp1"},
    Station{"33-view-dp1", "Worksheet D Part I in view.", View, Close_Form, "Dp1"},
    Station{"34-edit-dp2", "Worksheet D Part II, the settlement, under edit.", Edit, Close_Form, "Dp2"},
    Station{"35-view-dp2", "Worksheet D Part II in view.", View, Close_Form, "Dp2"},
    Station{"36-edit-d1", "Worksheet D-1, interim payments, under edit.", Edit, Close_Form, "D1"},
    Station{"37-view-d1", "Worksheet D-1 in view.", View, Close_Form, "D1"},
    Station{"38-edit-f", "Worksheet F, the balance sheet, under edit.", Edit, Close_Form, "F"},
    Station{"39-view-f", "Worksheet F in view.", View, Close_Form, "F"},
    Station{"40-edit-f1", "Worksheet F-1, revenue and expenses, under edit.", Edit, Close_Form, "F1"},
    Station{"41-view-f1", "Worksheet F-1 in view.", View, Close_Form, "F1"},
    Station{"42-edit-f2", "Worksheet F-2, fund balances, under edit.", Edit, Close_Form, "F2"},
    Station{"43-view-f2", "Worksheet F-2 in view.", View, Close_Form, "F2"},
    Station{"44-view-sp2", "Worksheet S Part II: due to the agency, or to the program.", View, Close_Form, "Sp2"},
    Station{"45-edit-s2", "Worksheet S-2, identification, under edit.", Edit, Escape_And_Close_Form, "S2"},
    Station{"46-view-s2", "Worksheet S-2 in view.", View, Close_Form, "S2"},
    Station{"47-edit-s21", "Worksheet S-2-1, the reimbursement questionnaire, under edit.", Edit, Escape_And_Close_Form,
            "S21"},
    Station{"48-view-s21", "Worksheet S-2-1 in view.", View, Close_Form, "S21"},
    Station{"49-edit-s3p1", "Worksheet S-3 Part I, visits and patients, under edit.", Edit, Close_Form, "S3p1"},
    Station{"50-view-s3p1", "Worksheet S-3 Part I in view.", View, Close_Form, "S3p1"},
    Station{"51-edit-s3p2", "Worksheet S-3 Part II, full-time equivalents, under edit.", Edit, Close_Form, "S3p2"},
    Station{"52-edit-s3p3", "Worksheet S-3 Part III, the codes of MSAs and CBSAs, under edit.", Edit, Close_Form,
            "S3p3"},
    Station{"53-edit-s3p4", "Worksheet S-3 Part IV, PPS activity, under edit.", Edit, Close_Form, "S3p4"},
    Station{"54-view-s3p4", "Worksheet S-3 Part IV in view.", View, Close_Form, "S3p4"},

    Station{"60-entry-refused", "Words in an amount: the entry is refused and the old amount stays.", Enter_Words,
            Escape_And_Close_Form, "A"},
    Station{"61-entry-rounded", "Cents in a whole amount: the entry is rounded.", Enter_Cents, Escape_And_Close_Form,
            "A"},
    Station{"62-pop-up", "Worksheet S-2, line 8: the list of the types of control.", Open_Control_Types,
            Escape_And_Close_Form, "S2"},
    Station{"63-find", "Find, in worksheet A.", Find_Word, Escape_And_Close_Form, "A"},
    Station{"64-zoom", "Worksheet D Part II, larger.", Zoom_In, Normal_Size, "Dp2"},
    Station{"65-side-by-side", "The edit and the view of worksheet A-4, side by side.", Tile_Two_Forms,
            Close_Both_Forms, "A4"},
    Station{"66-tabs", "The same as tabs.", Put_In_Tabs, Leave_Tabs, "A4"},

    Station{"70-messages", "What a calculation has to report: this report has lost two lines of B-1.", Calculate_Report,
            Escape, "messages.CRF"},
    Station{"71-close-forms", "A job that needs the forms closed asks first.", Ask_For_Closing, Escape_And_Close_Form,
            "A"},

    Station{"80-fiscal-year-1999", "The sample agency in fiscal year 1999.", Open_Report, nullptr, "fy1999.CRF",
            Read_Help},
    Station{"81-edit-a1", "Worksheet A-1, salaries by kind, under edit.", Edit, Close_Form, "A1"},
    Station{"82-view-a3", "Worksheet A-3, contracted services, in view.", View, Close_Form, "A3"},
    Station{"83-edit-a83p1", "Worksheet A-8-3 Part I, physical therapy by outside suppliers, under edit.", Edit,
            Close_Form, "A83p1P"},
    Station{"84-view-a83p3", "Worksheet A-8-3 Part III in view.", View, Close_Form, "A83p3P"},
    Station{"85-edit-cp4", "Worksheet C Part IV, beneficiaries, under edit.", Edit, Close_Form, "Cp4"},
    Station{"86-view-cp4", "Worksheet C Part IV in view.", View, Close_Form, "Cp4"},
};

}  // namespace

std::span<const Station> Stations() {
    return kStations;
}

}  // namespace tallmar
