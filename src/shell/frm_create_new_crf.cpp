#include "shell/frm_create_new_crf.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

#include "report/new_report.h"
#include "screens/view/qt_text.h"
#include "shell/entry_fields.h"

namespace tallmar {

namespace {

constexpr const char* kName = "frmCreateNewCRF";
constexpr LeaveCheck kLeaveChecks[] = {{EntryField::Start, Leave_FYStart}, {EntryField::End, Leave_FYEnd}};

void Create(QDialog& dialog, EntryFields& fields, const QLineEdit& formNum) {
    NewReportEntries entries = fields.Read();
    entries.formNum = Plain_Text(formNum.text());
    FiscalYear year;
    const EntryField failed = Check_Entries(entries, kNewReportDates, year);
    fields.Show(entries);
    if (failed != EntryField::None) return fields.Return_To(failed);
    if (Create_CRF(entries, year)) {
        dialog.accept();
    } else {
        dialog.show();  // the job has hidden it
    }
}

}  // namespace

DialogPtr Make_Create_New_CRF(QWidget* parent) {
    DialogPtr dialog = Make_Dialog(kName, QStringLiteral("Create a New Cost Report File"), parent);
    auto* layout = new QFormLayout(dialog.get());
    QLineEdit* formNum = Add_Entry(*layout, "txtFormNum", QStringLiteral("&Form number:"));
    formNum->setText(Qt_Text(NewReportEntries{}.formNum));
    formNum->setReadOnly(true);
    auto* fields = new EntryFields(*layout, kNewReportDates, kLeaveChecks);

    auto* box = new QDialogButtonBox(dialog.get());
    QPushButton* create = Add_Button(*box, "cmdCreate", QStringLiteral("&Create ..."), QDialogButtonBox::AcceptRole);
    create->setDefault(true);
    Add_Button(*box, "cmdCancel", QStringLiteral("C&ancel"), QDialogButtonBox::RejectRole);
    QObject::connect(box, &QDialogButtonBox::accepted, fields,
                     [form = dialog.get(), fields, formNum] { Create(*form, *fields, *formNum); });
    QObject::connect(box, &QDialogButtonBox::rejected, dialog.get(), &QDialog::reject);
    layout->addRow(box);
    fields->Return_To(EntryField::Provider);
    return dialog;
}

bool Show_Create_New_CRF(QWidget* parent) {
    return Run_Modal(*Make_Create_New_CRF(parent));
}

void Hide_Create_New_CRF() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == kName) window->hide();
    }
}

}  // namespace tallmar
