#include "shell/frm_header_lines.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>
#include <functional>
#include <optional>
#include <utility>

#include "common/platform.h"
#include "report/backup.h"
#include "report/master.h"
#include "report/registry.h"
#include "screens/cell_text.h"
#include "screens/dispatch.h"
#include "screens/form_rows.h"
#include "screens/open_form.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr const char* kItem = "HeaderLines";
constexpr std::string_view kText = "LineText";
constexpr int kCharacters = 64;  // of a line, and its frame

// An older report has no such table.
const FormDescription& The_Form() {
    if (!TableExists(kItem, false)) {
        Keep_Backup();
        Build_HeaderLines();
    }
    return *Form_Of(FormMode::Edit, kItem);
}

// A line that was refused is taken up again as it was typed.
class LineEditor : public QStyledItemDelegate {
  public:
    using Store = std::function<bool(int row, const QString& text)>;
    LineEditor(Store store, QObject* parent) : QStyledItemDelegate(parent), store_(std::move(store)) {}
    bool Is_Held() const { return held_.has_value(); }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        auto* line = qobject_cast<QLineEdit*>(editor);
        const bool again = held_ && held_->row == index.row();
        line->setText(again ? std::exchange(held_, std::nullopt)->text : index.data(Qt::EditRole).toString());
        line->setAccessibleName(QStringLiteral("Custom header line %1").arg(index.row() + 1));
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        const QString text = qobject_cast<QLineEdit*>(editor)->text();
        if (text == index.data(Qt::EditRole).toString()) return;
        if (store_(index.row(), text)) {
            model->setData(index, text);
        } else {
            held_ = Held{index.row(), text};
        }
    }

  private:
    Store store_;
    struct Held {
        int row;
        QString text;
    };
    mutable std::optional<Held> held_;
};

// As high as its lines, and as wide as the longest line.
void Show_Whole_Grid(QTableWidget& grid) {
    grid.setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    grid.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    grid.setMinimumWidth(kCharacters * grid.fontMetrics().averageCharWidth() +
                         grid.verticalHeader()->sizeHint().width());
}

// Closes only when no line is refused.
class HeaderLinesDialog : public QDialog {
  public:
    explicit HeaderLinesDialog(QWidget* parent);
    // An open editor gives its text while there is still something to take it.
    ~HeaderLinesDialog() override { hide(); }
    void done(int result) override;

  private:
    void Fill();
    bool Store(int row, const QString& text);
    void Edit_Again(int row, const Refusal& refusal);

    OpenForm form_{The_Form(), kItem};
    FormRows rows_{form_.Description(), kItem};
    QTableWidget* grd_;
    LineEditor* editor_;
};

HeaderLinesDialog::HeaderLinesDialog(QWidget* parent) : QDialog(parent), grd_(new QTableWidget(this)) {
    Set_Up_Dialog(*this, "frmHeaderLines", QStringLiteral("Custom Header Lines"));
    auto* hint =
        new QLabel(QStringLiteral("&Lines at the head of every printed page. An empty line is not printed."), this);
    hint->setBuddy(grd_);
    hint->setWordWrap(true);
    editor_ = new LineEditor([this](int row, const QString& text) { return Store(row, text); }, this);
    Fill();
    auto* box = new QDialogButtonBox(this);
    Add_Button(*box, "cmdClose", QStringLiteral("&Close"), QDialogButtonBox::RejectRole)->setDefault(true);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(grd_);
    layout->addStretch();
    layout->addWidget(box);
    grd_->setFocus();
}

void HeaderLinesDialog::Fill() {
    grd_->setObjectName(QStringLiteral("grd"));
    grd_->setAccessibleName(windowTitle());
    const GridColumn& column = *form_.Find_Column(kText);
    grd_->setColumnCount(1);
    grd_->setHorizontalHeaderLabels({Qt_Text(column.label)});
    grd_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grd_->horizontalHeader()->setHighlightSections(false);
    grd_->setRowCount(static_cast<int>(rows_.Count()));
    QStringList numbers;
    for (std::size_t at = 0; at < rows_.Count(); ++at) {
        numbers += Qt_Text(Edit_Text(rows_.Line(at)));
        grd_->setItem(static_cast<int>(at), 0, new QTableWidgetItem(Qt_Text(Edit_Text(rows_.At(at)[kText]))));
    }
    grd_->setVerticalHeaderLabels(numbers);
    grd_->setItemDelegate(editor_);
    grd_->setTabKeyNavigation(false);
    grd_->setSelectionMode(QAbstractItemView::SingleSelection);
    grd_->setCurrentCell(0, 0);
    Show_Whole_Grid(*grd_);
}

bool HeaderLinesDialog::Store(int row, const QString& text) {
    Keep_Backup();
    form_.Place_Cursor(rows_.Line(static_cast<std::size_t>(row)));
    std::optional<Refusal> refusal = form_.Enter(*form_.Find_Column(kText), Plain_Text(text));
    if (!refusal) refusal = form_.Store_Row();
    if (!refusal) return true;
    form_.Discard_Row();
    // The box comes after the editor has gone, not in the middle of it.
    QMetaObject::invokeMethod(
        this, [this, row, refusal] { Edit_Again(row, *refusal); }, Qt::QueuedConnection);
    return false;
}

void HeaderLinesDialog::Edit_Again(int row, const Refusal& refusal) {
    Show_Refusal(refusal);
    grd_->setFocus();
    grd_->setCurrentCell(row, 0);
    grd_->edit(grd_->currentIndex());
}

void HeaderLinesDialog::done(int result) {
    if (QWidget* editor = grd_->indexWidget(grd_->currentIndex())) {
        emit editor_->commitData(editor);
        emit editor_->closeEditor(editor);
    }
    if (editor_->Is_Held()) return;
    form_.Close();
    QDialog::done(result);
}

}  // namespace

DialogPtr Make_Header_Lines(QWidget* parent) {
    return std::make_unique<HeaderLinesDialog>(parent);
}

void Show_Header_Lines(QWidget* parent) {
    Run_Modal(*Make_Header_Lines(parent));
}

}  // namespace tallmar
