#include "screens/view/worksheet_form.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "common/platform.h"
#include "common/program.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "screens/view/button_strip.h"
#include "screens/view/find_bar.h"
#include "screens/view/grid_head.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr std::string_view kWidthsSection = "Columns";
constexpr std::string_view kDroppedTitle = "Rows Not Stored";
constexpr int kRowsAtLeast = 4;

}  // namespace

WorksheetForm::WorksheetForm(FormMode mode, GridModel* model, QWidget* parent)
    : QWidget(parent),
      mode_(mode),
      model_(model),
      picButtons_(new QWidget(this)),
      dat_(new QLabel(this)),
      lines_(new QVBoxLayout(this)) {
    model_->setParent(this);
    const FormDescription& description = Form().Description();
    setObjectName(Qt_Text(description.name));
    setWindowTitle(Qt_Text(Caption()));
    setAccessibleName(windowTitle());
    picButtons_->setObjectName("picButtons");
    dat_->setObjectName("dat");
    lines_->setContentsMargins(0, 0, 0, 0);
    lines_->setSpacing(0);
    // Controls are made in the order in which the Tab key walks them.
    if (description.window.above != nullptr) Add_Text_Above(*description.window.above);
}

WorksheetForm::~WorksheetForm() {
    // Before the model that it shows.
    delete grd_;
}

void WorksheetForm::Set_Up(GridView* grd) {
    grd_ = grd;
    grd->setObjectName("grd");
    grd->setAccessibleName(windowTitle());
    grd->setModel(model_);
    find_ = new FindBar(*grd, this);
    const int margin = fontMetrics().averageCharWidth();
    dat_->setContentsMargins(margin, margin / 2, margin, 0);
    lines_->addWidget(grd, 1);
    lines_->addWidget(find_);
    lines_->addWidget(dat_);
    lines_->addWidget(picButtons_);
    setFocusProxy(grd);
    connect(find_, &FindBar::Found_Elsewhere, this, &WorksheetForm::Found_Elsewhere);
    connect(grd, &GridView::Find_Requested, this, &WorksheetForm::Open_Find);
    Load_Widths();
    connect(grd->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { Show_Row(current.row()); });
    connect(model_, &QAbstractItemModel::modelReset, this, [this] { Show_Row(grd_->currentIndex().row()); });
    connect(model_, &QAbstractItemModel::rowsInserted, this, &WorksheetForm::Show_Record_Status);
    connect(model_, &QAbstractItemModel::rowsRemoved, this, &WorksheetForm::Show_Record_Status);
    Show_Row(grd->currentIndex().row());
}

void WorksheetForm::Add_Above_Grid(QWidget* line) {
    lines_->insertWidget(lines_->indexOf(grd_), line);
}

void WorksheetForm::Add_Below_Grid(QWidget* line) {
    lines_->insertWidget(lines_->indexOf(grd_) + 1, line);
}

void WorksheetForm::Add_Text_Above(const TextAbove& text) {
    auto* line = new QWidget(this);
    auto* label = new QLabel(Qt_Text(text.label), line);
    label->setObjectName(Qt_Text(text.labelControl));
    above_ = new QLineEdit(line);
    above_->setObjectName(Qt_Text(text.control));
    above_->setAccessibleName(Qt_Text(text.label).remove('&').remove(':'));
    above_->setReadOnly(mode_ == FormMode::View);
    label->setBuddy(above_);
    auto* row = new QHBoxLayout(line);
    row->addWidget(label);
    row->addWidget(above_, 1);
    row->addStretch(1);
    lines_->addWidget(line);
    Read_Text_Above();
}

void WorksheetForm::Read_Text_Above() {
    if (above_ == nullptr) return;
    const TextAbove& text = *Form().Description().window.above;
    const Row row = db.Read_Row(Row_Query(Form().Description(), Worksheet(), text.line));
    above_->setText(Qt_Text(row ? Nz_Str(row[text.field]) : std::string()));
}

QPushButton* WorksheetForm::Add_Button(const char* name, const QString& caption, const QString& tip) {
    auto* button = new QPushButton(caption, picButtons_);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAccessibleName(QString(caption).remove('&'));
    button->setAutoDefault(false);
    // A click or an access key leaves the keyboard with the grid: what is typed next goes into a cell.
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void WorksheetForm::Add_Walk_Buttons() {
    QPushButton* close = Add_Button("cmdClose", tr("&Close"), tr("Close this form"));
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    cmdPrevious_ = Add_Button("cmdPrevious", tr("&Previous"));
    cmdNext_ = Add_Button("cmdNext", tr("&Next"));
    const auto walk = [this](Direction direction) {
        if (!Commit_Grid()) return;
        const std::string next = Next_Worksheet(Caption(), direction);
        if (!next.empty()) emit Open_Requested(mode_, Qt_Text(next));
    };
    connect(cmdPrevious_, &QPushButton::clicked, this, [walk] { walk(Direction::Previous); });
    connect(cmdNext_, &QPushButton::clicked, this, [walk] { walk(Direction::Next); });
    Refresh_Neighbours();
}

void WorksheetForm::Refresh_Neighbours() {
    const auto refresh = [this](QPushButton* button, Direction direction) {
        if (button == nullptr) return;
        const QString tip = Qt_Text(Neighbour_Tip(Caption(), direction));
        button->setToolTip(tip);
        button->setAccessibleDescription(tip);
        button->setEnabled(!tip.isEmpty());
    };
    refresh(cmdPrevious_, Direction::Previous);
    refresh(cmdNext_, Direction::Next);
}

void WorksheetForm::Reload() {
    model_->Reload();
    Read_Text_Above();
    Refresh_Neighbours();
}

void WorksheetForm::Show_Row(int row) {
    model_->Show_Heads_Of(row);
    Show_Record_Status();
}

void WorksheetForm::Show_Record_Status() {
    const int row = std::max(grd_->currentIndex().row(), 0);
    const QString status =
        Qt_Text(Record_Status(static_cast<std::size_t>(row), static_cast<std::size_t>(model_->rowCount())));
    dat_->setText(status);
    dat_->setAccessibleName(status);
}

void WorksheetForm::Open_Find() {
    find_->Open();
}

void WorksheetForm::Show_Found(const FoundCell& cell, const QString& text, FormMode mode) {
    const int column = model_->Column_Of(cell.field);
    if (column >= 0) grd_->setCurrentIndex(model_->index(static_cast<int>(cell.row), column));
    find_->Go_On(text, mode);
}

void WorksheetForm::Load_Widths() {
    const std::string text = The_Platform().Get_Setting(kProgramTitle, kWidthsSection, Plain_Text(objectName()), "");
    if (!text.empty()) grd_->Choose_Widths(Widths_Of(text));
}

void WorksheetForm::Save_Widths() {
    if (!grd_->Widths_Changed()) return;
    The_Platform().Save_Setting(kProgramTitle, kWidthsSection, Plain_Text(objectName()),
                                Widths_Text(grd_->Chosen_Widths()));
}

void WorksheetForm::Tell_Dropped(const std::vector<std::string>& dropped) {
    if (dropped.empty()) return;
    std::string text;
    for (const std::string& row : dropped) text += (text.empty() ? "" : "\n") + row;
    The_Platform().Message_Box(text, kExclamation, kDroppedTitle);
}

void WorksheetForm::closeEvent(QCloseEvent* event) {
    if (!Commit_Grid()) return event->ignore();
    Save_Widths();
    Tell_Dropped(Form().Close());
    event->accept();
}

void WorksheetForm::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Find)) return Open_Find();
    if (event->key() == Qt::Key_F3) return find_->Next((event->modifiers() & Qt::ShiftModifier) != 0);
    if (event->key() == Qt::Key_Escape && !find_->isHidden()) return find_->Close();
    QWidget::keyPressEvent(event);
}

void WorksheetForm::Layout_Buttons() {
    if (mode_ == FormMode::Edit) {
        Layout_Edit_Buttons(*picButtons_, width());
    } else {
        Layout_View_Buttons(*picButtons_, width());
    }
}

void WorksheetForm::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Layout_Buttons();
}

QSize WorksheetForm::sizeHint() const {
    const int strip = mode_ == FormMode::Edit ? Edit_Strip_Width(*picButtons_) : View_Strip_Width(*picButtons_);
    const QSize around = QWidget::sizeHint() - grd_->sizeHint();
    const QSize whole = grd_->Whole_Size();
    return {std::max(whole.width(), strip), whole.height() + around.height()};
}

QSize WorksheetForm::minimumSizeHint() const {
    const int line = grd_->verticalHeader()->defaultSectionSize();
    const QSize around = QWidget::sizeHint() - grd_->sizeHint();
    return {fontMetrics().averageCharWidth() * 30,
            grd_->Head().sizeHint().height() + kRowsAtLeast * line + around.height()};
}

}  // namespace tallmar
