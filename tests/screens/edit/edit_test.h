// What the tests of the edit forms share: a form on the screen, driven by keys and clicks as a person drives it.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "common/worksheets.h"
#include "screens/edit/edit_form.h"
#include "support/report_fixture.h"

namespace tallmar {

inline const FormDescription& Edit_Form_Of(const char* item) {
    return *Form_Of(FormMode::Edit, item);
}

// A form that is open on the screen, with the cursor where the form puts it.
class Screen {
  public:
    explicit Screen(const char* item) : form(Edit_Form_Of(item), item), grd(form.Entry_Grid()) {
        QObject::connect(&form, &WorksheetForm::Stored, &form,
                         [this](const QString& text) { told.push_back(text.toStdString()); });
        QObject::connect(&form, &WorksheetForm::Cell_Changed, &form, [this] { ++changes; });
        form.resize(1100, 700);
        form.show();
        QApplication::setActiveWindow(&form);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        grd.setFocus();
    }

    QModelIndex Index(const LineRef& line, const ColumnRef& column) const {
        return form.Model().index(form.Model().Row_Of(line.line), form.Model().Column_Of(column.name));
    }
    void At(const LineRef& line, const ColumnRef& column) { grd.setCurrentIndex(Index(line, column)); }
    void Click(const LineRef& line, const ColumnRef& column) {
        grd.scrollTo(Index(line, column));
        QTest::mouseClick(grd.viewport(), Qt::LeftButton, {}, grd.visualRect(Index(line, column)).center());
    }
    // "5.01 Col_3": where the cursor is.
    std::string Cursor() const {
        const QModelIndex at = grd.currentIndex();
        if (!at.isValid()) return "nowhere";
        return form.Model().Line(at.row()).To_Text() + " " + form.Model().Column(at.column()).field;
    }
    std::string Shown(const LineRef& line, const ColumnRef& column) const {
        return Index(line, column).data().toString().toStdString();
    }

    // Keys go where the focus is: to the grid, or to the editor over it.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const char* text) {
        for (const char* at = text; *at != '\0'; ++at) QTest::keyClick(QApplication::focusWidget(), *at);
    }
    QLineEdit* Editor() const { return grd.Is_Editing() ? grd.findChild<QLineEdit*>("cellEditor") : nullptr; }
    QPushButton* Button(const char* name) const { return form.findChild<QPushButton*>(name); }

    std::vector<std::string> told;  // the status line
    int changes = 0;                // Cell_Changed
    EditForm form;
    EditGrid& grd;
};

}  // namespace tallmar
