#include "shell/frm_crf_edit_key.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <utility>

#include "common/platform.h"
#include "shell/entry_fields.h"
#include "structure/edit_key.h"

namespace tallmar {

namespace {

constexpr LeaveCheck kLeaveChecks[] = {
    {EntryField::Provider, Leave_ProviderNumber}, {EntryField::Start, Leave_FYStart}, {EntryField::End, Leave_FYEnd}};

bool Save(NewReportEntries& entries, EntryField& failed) {
    failed = Save_Edit_Key(entries);
    return failed == EntryField::None;
}

// `save` checks and stores: in place, or in a copy.
void Save_By(bool (*save)(NewReportEntries&, EntryField&), QDialog& dialog, EntryFields& fields,
             const IdentityChanged& identityChanged) {
    NewReportEntries entries = fields.Read();
    EntryField failed = EntryField::None;
    bool saved = false;
    try {
        saved = save(entries, failed);
    } catch (const std::exception& error) {
        The_Platform().Message_Box(error.what(), kStop, "System Error");
    }
    fields.Show(entries);
    if (failed != EntryField::None) return fields.Return_To(failed);
    if (!saved) return;
    The_Platform().Menus_Stale();  // they hang on the fiscal year
    if (identityChanged) identityChanged();
    dialog.accept();
}

}  // namespace

DialogPtr Make_CRF_Edit_Key(QWidget* parent, IdentityChanged identityChanged) {
    DialogPtr dialog = Make_Dialog("frmCRFEditKey", QStringLiteral("Provider and Fiscal Year"), parent);
    auto* layout = new QFormLayout(dialog.get());
    auto* fields = new EntryFields(*layout, kEditKeyDates, kLeaveChecks);
    fields->Show(Load_Edit_Key());

    auto* box = new QDialogButtonBox(dialog.get());
    QPushButton* save = Add_Button(*box, "cmdSave", QStringLiteral("Sa&ve"), QDialogButtonBox::AcceptRole);
    save->setDefault(true);
    QPushButton* saveAs = Add_Button(*box, "cmdSaveAs", QStringLiteral("Save &As ..."), QDialogButtonBox::ActionRole);
    saveAs->setAutoDefault(false);
    Add_Button(*box, "cmdCancel", QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
    QDialog* form = dialog.get();
    QObject::connect(save, &QPushButton::clicked, fields, [form, fields, saveAs, identityChanged] {
        saveAs->setEnabled(false);
        Save_By(Save, *form, *fields, identityChanged);
        saveAs->setEnabled(true);
    });
    QObject::connect(saveAs, &QPushButton::clicked, fields, [form, fields, done = std::move(identityChanged)] {
        Save_By(Save_Edit_Key_As_Dialog, *form, *fields, done);
    });
    QObject::connect(box, &QDialogButtonBox::rejected, form, &QDialog::reject);
    layout->addRow(box);
    fields->Return_To(EntryField::Provider);
    return dialog;
}

bool Show_CRF_Edit_Key(QWidget* parent, IdentityChanged identityChanged) {
    return Run_Modal(*Make_CRF_Edit_Key(parent, std::move(identityChanged)));
}

}  // namespace tallmar
