// A view form as the main window shows it, over a report in memory.
#pragma once

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "common/worksheets.h"
#include "report/open_report.h"
#include "screens/forms.h"
#include "screens/view/grid_head.h"
#include "screens/view/worksheet_form.h"
#include "support/report_fixture.h"

namespace tallmar {

inline std::unique_ptr<ViewForm> Open_View(const std::string& item, QSize size = {1000, 600}) {
    auto form = std::make_unique<ViewForm>(*Form_Of(FormMode::View, item), item);
    form->resize(size);
    form->show();
    return form;
}

inline QString Text_At(const WorksheetForm& form, Currency line, std::string_view field, int role = Qt::DisplayRole) {
    const GridModel& model = form.Model();
    return model.index(model.Row_Of(line), model.Column_Of(field)).data(role).toString();
}

inline void Put_Cursor(const WorksheetForm& form, Currency line, std::string_view field) {
    const GridModel& model = form.Model();
    form.Grid().setCurrentIndex(model.index(model.Row_Of(line), model.Column_Of(field)));
}

// The menu of the right button over the cursor's cell, as it is open; null where none opened.
inline QMenu* Menu_At_Cursor(GridView& grd) {
    const QPoint at = grd.visualRect(grd.currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, grd.viewport()->mapToGlobal(at));
    QApplication::sendEvent(grd.viewport(), &event);
    return grd.findChild<QMenu*>("mnuGrid");
}
inline QStringList Entries_Of(const QMenu& menu) {
    QStringList entries;
    for (const QAction* action : menu.actions()) entries << action->text();
    return entries;
}

inline QPushButton* Button(const WorksheetForm& form, const char* name) {
    return form.findChild<QPushButton*>(name);
}

// The worksheets that the menus offer.
inline std::vector<std::string> Worksheets_Of_Report() {
    std::vector<std::string> items;
    Recordset rows =
        db.OpenRecordset("SELECT Item FROM Worksheets WHERE Calc_Lvl < 900 ORDER BY Item;", RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) items.push_back(rows["Item"].To_Text());
    return items;
}

inline QModelIndex At(const WorksheetForm& form, Currency line, std::string_view field) {
    return form.Model().index(form.Model().Row_Of(line), form.Model().Column_Of(field));
}

}  // namespace tallmar
