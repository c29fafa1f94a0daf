// The entries of a report's identity, as the dialog of a new report and the identity editor have them.
#pragma once

#include <QLineEdit>
#include <QObject>
#include <array>
#include <span>

#include "report/entry_checks.h"

class QFormLayout;

namespace tallmar {

// The check of an entry when the focus leaves it for another entry.
struct LeaveCheck {
    EntryField field;
    bool (*leave)(NewReportEntries& entries, const char* dateFormat);
};

class EntryFields : public QObject {
  public:
    // Rows for provider number, dates and name at the end of the layout. Belongs to the layout's window. `checks` must
    // outlive it. No check runs when the focus goes to a button or the window closes, and a text that had its box gets
    // no second one: nobody is held in an entry.
    EntryFields(QFormLayout& layout, const char* dateFormat, std::span<const LeaveCheck> checks);

    NewReportEntries Read() const;
    void Show(const NewReportEntries& entries);
    // Puts the focus back and selects what was keyed.
    void Return_To(EntryField field);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Leave(std::size_t at);

    static constexpr std::size_t kEntries = 4;
    const char* dateFormat_;
    std::span<const LeaveCheck> checks_;
    std::array<QLineEdit*, kEntries> edits_{};
    std::array<QString, kEntries> told_;
};

}  // namespace tallmar
