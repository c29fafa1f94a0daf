#include "shell/entry_fields.h"

#include <QApplication>
#include <QEvent>
#include <QFormLayout>
#include <algorithm>

#include "screens/view/qt_text.h"
#include "shell/dialog.h"

namespace tallmar {

namespace {

struct Entry {
    EntryField field;
    std::string NewReportEntries::*text;
    const char* name;
    const char* label;
    const char* hint;  // shown in the entry while it is empty
};
constexpr Entry kEntryRows[] = {
    {EntryField::Provider, &NewReportEntries::providerNumber, "txtProviderNum", "&Provider number:", "such as 14-7100"},
    {EntryField::Start, &NewReportEntries::fyStart, "txtFYStart", "Fiscal year &start:", "m/d/yy"},
    {EntryField::End, &NewReportEntries::fyEnd, "txtFYEnd", "Fiscal year &end:", "m/d/yy, empty: one year"},
    {EntryField::Name, &NewReportEntries::facilityName, "txtFacilityName", "Facility &name:", "8 to 36 characters"},
};
constexpr int kCharacters = 36;

std::size_t Place(EntryField field) {
    return static_cast<std::size_t>(std::ranges::find(kEntryRows, field, &Entry::field) - kEntryRows);
}

}  // namespace

EntryFields::EntryFields(QFormLayout& layout, const char* dateFormat, std::span<const LeaveCheck> checks)
    : QObject(layout.parentWidget()), dateFormat_(dateFormat), checks_(checks) {
    for (std::size_t at = 0; at < kEntries; ++at) {
        const Entry& entry = kEntryRows[at];
        QLineEdit* edit = edits_[at] = Add_Entry(layout, entry.name, QLatin1String(entry.label));
        edit->setPlaceholderText(QLatin1String(entry.hint));
        edit->installEventFilter(this);
    }
    QLineEdit* name = edits_[Place(EntryField::Name)];
    name->setMinimumWidth(name->fontMetrics().horizontalAdvance(QString(kCharacters, QLatin1Char('N'))));
}

NewReportEntries EntryFields::Read() const {
    NewReportEntries entries;
    for (std::size_t at = 0; at < kEntries; ++at) entries.*kEntryRows[at].text = Plain_Text(edits_[at]->text());
    return entries;
}

void EntryFields::Show(const NewReportEntries& entries) {
    for (std::size_t at = 0; at < kEntries; ++at) {
        const QString text = Qt_Text(entries.*kEntryRows[at].text);
        if (text != edits_[at]->text()) edits_[at]->setText(text);
    }
}

void EntryFields::Return_To(EntryField field) {
    QLineEdit* edit = edits_[Place(field)];
    edit->setFocus(Qt::OtherFocusReason);
    edit->selectAll();
}

bool EntryFields::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const auto at = static_cast<std::size_t>(std::ranges::find(edits_, watched) - edits_.begin());
        // The box comes after the change of focus, not in the middle of it.
        QMetaObject::invokeMethod(
            this, [this, at] { Leave(at); }, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void EntryFields::Leave(std::size_t at) {
    const auto* now = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    const bool toAnotherEntry = now != nullptr && now != edits_[at] && now->window() == edits_[at]->window();
    const auto check = std::ranges::find(checks_, kEntryRows[at].field, &LeaveCheck::field);
    if (!toAnotherEntry || check == checks_.end()) return;
    const QString text = edits_[at]->text();
    if (!told_[at].isNull() && text == told_[at]) return;

    NewReportEntries entries = Read();
    if (check->leave(entries, dateFormat_)) {
        Show(entries);
    } else {
        told_[at] = text.isNull() ? QLatin1String("") : text;
        Return_To(check->field);
    }
}

}  // namespace tallmar
