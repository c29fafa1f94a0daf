// The forms that only show: every row of the worksheet, totals included.
#include <QLabel>
#include <QMenu>

#include "report/open_report.h"
#include "screens/view/qt_text.h"
#include "screens/view/worksheet_form.h"

namespace tallmar {

namespace {

void Show_Line_Set(const WorksheetForm& form, const LineSet& set) {
    const GridModel& model = form.Model();
    const int total = model.Row_Of(set.total);
    if (total < 0) return;
    GridView& grd = form.Grid();
    grd.setCurrentIndex(model.index(total, model.Frozen()));
    QItemSelection lines;
    for (const Currency line : {set.parts[0], set.parts[1], set.total}) {
        if (const int row = model.Row_Of(line); row >= 0) {
            lines.select(model.index(row, 0), model.index(row, model.columnCount() - 1));
        }
    }
    grd.selectionModel()->select(lines, QItemSelectionModel::ClearAndSelect);
    grd.setFocus();
}

}  // namespace

ViewForm::ViewForm(const FormDescription& description, Item item, QWidget* parent)
    : WorksheetForm(FormMode::View, new GridModel(description, std::move(item)), parent), lblAge_(new QLabel(this)) {
    Set_Up(new GridView(this));
    lblAge_->setObjectName("lblAge");
    lblAge_->setWordWrap(true);
    lblAge_->setAutoFillBackground(true);
    lblAge_->setBackgroundRole(QPalette::ToolTipBase);
    lblAge_->setForegroundRole(QPalette::ToolTipText);
    lblAge_->setMargin(fontMetrics().averageCharWidth() / 2);
    Add_Above_Grid(lblAge_);
    Show_Age();
    QPushButton* recalculate =
        Add_Button("cmdRecalculate", tr("Recalc&ulate"), tr("Calculate the whole report and show the results here"));
    connect(recalculate, &QPushButton::clicked, this, &WorksheetForm::Recalculate_Requested);
    Add_Button("cmdPrint", tr("Pr&int"), tr("Printing is not available yet"))->setEnabled(false);
    QPushButton* open = Add_Button("cmdOpenEdit", tr("&Open Edit"), tr("Open this worksheet for edit"));
    connect(open, &QPushButton::clicked, this,
            [this] { emit Open_Requested(FormMode::Edit, Qt_Text(Worksheet().Name())); });
    if (Form_Of(FormMode::Edit, Worksheet()) == nullptr) {
        open->setEnabled(false);
        open->setToolTip(tr("There is no form to edit this worksheet"));
    }
    Add_Walk_Buttons();
    if (!description.window.lineSets.empty()) Add_Line_Sets(description.window.lineSets);
    if (!description.window.building.empty()) Add_Building_Text(description.window.building);
    Layout_Buttons();
}

void ViewForm::Show_Age() {
    const EntryAge& age = openReport.entryAge;
    if (age.Is_Older()) {
        lblAge_->setText(
            tr("%1: figures here may be older. Recalculate brings them up to date.").arg(Qt_Text(age.Text())));
        lblAge_->setAccessibleName(lblAge_->text());
    }
    lblAge_->setVisible(age.Is_Older());
}

void ViewForm::Add_Building_Text(std::string_view text) {
    txtCalcMsg_ = new QLabel(Qt_Text(text), this);
    txtCalcMsg_->setObjectName("txtCalcMsg");
    txtCalcMsg_->setAccessibleName(txtCalcMsg_->text().trimmed());
    Add_Above_Grid(txtCalcMsg_);
    txtCalcMsg_->hide();
}

void ViewForm::Reload() {
    if (txtCalcMsg_ == nullptr) return WorksheetForm::Reload();
    txtCalcMsg_->show();
    txtCalcMsg_->repaint();
    WorksheetForm::Reload();
    txtCalcMsg_->hide();
}

void ViewForm::Add_Line_Sets(std::span<const LineSet> sets) {
    auto* list = new QMenu(this);
    list->setObjectName("ButtonList");
    list->setAccessibleName(tr("Line set"));
    for (const LineSet& set : sets) {
        const int row = Model().Row_Of(set.total);
        const int label = Model().Column_Of("LineLabel");
        QString caption = tr("Line &%1").arg(Qt_Text(set.total.To_Text()));
        if (row >= 0 && label >= 0) caption += ": " + Model().index(row, label).data().toString().remove('*');
        QAction* entry = list->addAction(caption, this, [this, &set] { Show_Line_Set(*this, set); });
        entry->setObjectName(Qt_Text(set.button));
    }
    QPushButton* open = Add_Button("cmdButtonList", tr("&Line Set"), tr("Choose a total and the lines that it sums"));
    open->setMenu(list);
    connect(&Grid(), &GridView::Menu_Opens, list, [list](QMenu& menu) {
        menu.addSeparator();
        menu.addActions(list->actions());
    });
}

}  // namespace tallmar
