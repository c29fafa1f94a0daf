#include "shell/frm_go_to.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr int kLines = 16, kCharacters = 70;

class GoToDialog : public QDialog {
  public:
    GoToDialog(QWidget* parent, std::vector<FoundWorksheet> worksheets, WorksheetChoice& choice)
        : QDialog(parent),
          worksheets_(std::move(worksheets)),
          choice_(choice),
          txtWorksheet_(new QLineEdit(this)),
          lstWorksheets_(new QListWidget(this)) {
        Set_Up_Dialog(*this, "frmGoTo", QStringLiteral("Go To Worksheet"));
        txtWorksheet_->setObjectName(QStringLiteral("txtWorksheet"));
        txtWorksheet_->setAccessibleName(windowTitle());
        txtWorksheet_->setPlaceholderText(QStringLiteral("such as s3, a-4 or settlement"));
        txtWorksheet_->installEventFilter(this);
        lstWorksheets_->setObjectName(QStringLiteral("lstWorksheets"));
        lstWorksheets_->setAccessibleName(QStringLiteral("Worksheets"));
        const QFontMetrics font = fontMetrics();
        lstWorksheets_->setMinimumSize(font.averageCharWidth() * kCharacters / 2, font.lineSpacing() * kLines / 2);
        resize(font.averageCharWidth() * kCharacters, font.lineSpacing() * (kLines + 6));

        auto* box = new QDialogButtonBox(this);
        cmdEdit_ = Add_Button(*box, "cmdEdit", QStringLiteral("&Edit"), QDialogButtonBox::AcceptRole);
        cmdView_ = Add_Button(*box, "cmdView", QStringLiteral("&View"), QDialogButtonBox::ActionRole);
        Add_Button(*box, "cmdCancel", QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(txtWorksheet_);
        layout->addWidget(lstWorksheets_, 1);
        layout->addWidget(box);

        connect(txtWorksheet_, &QLineEdit::textChanged, this, &GoToDialog::Narrow);
        connect(lstWorksheets_, &QListWidget::currentRowChanged, this, &GoToDialog::Show_Buttons);
        connect(lstWorksheets_, &QListWidget::itemDoubleClicked, this, [this] { Open(Default_Mode()); });
        connect(cmdEdit_, &QPushButton::clicked, this, [this] { Open(FormMode::Edit); });
        connect(cmdView_, &QPushButton::clicked, this, [this] { Open(FormMode::View); });
        connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
        Narrow();
        txtWorksheet_->setFocus();
    }

  protected:
    // Up and Down move in the list while one types.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != txtWorksheet_ || event->type() != QEvent::KeyPress) return false;
        switch (static_cast<QKeyEvent*>(event)->key()) {
            case Qt::Key_Up:
                return Move(-1);
            case Qt::Key_Down:
                return Move(1);
            default:
                return false;
        }
    }

  private:
    bool Move(int step) {
        lstWorksheets_->setCurrentRow(std::clamp(lstWorksheets_->currentRow() + step, 0, lstWorksheets_->count() - 1));
        return true;
    }
    void Narrow() {
        found_ = Find_Worksheets(worksheets_, Plain_Text(txtWorksheet_->text()));
        lstWorksheets_->clear();
        for (const FoundWorksheet& worksheet : found_) {
            const QString title = worksheet.title.empty() ? QString() : ":  " + Qt_Text(worksheet.title);
            lstWorksheets_->addItem(Qt_Text(worksheet.name) + title);
        }
        lstWorksheets_->setCurrentRow(0);
        Show_Buttons();
    }
    const FoundWorksheet* Current() const {
        const int row = lstWorksheets_->currentRow();
        return row < 0 || row >= static_cast<int>(found_.size()) ? nullptr : &found_[static_cast<std::size_t>(row)];
    }
    FormMode Default_Mode() const {
        return Current() != nullptr && Current()->hasEdit ? FormMode::Edit : FormMode::View;
    }
    void Show_Buttons() {
        cmdEdit_->setEnabled(Current() != nullptr && Current()->hasEdit);
        cmdView_->setEnabled(Current() != nullptr);
        (Default_Mode() == FormMode::Edit ? cmdEdit_ : cmdView_)->setDefault(true);
    }
    void Open(FormMode mode) {
        if (Current() == nullptr) return;
        choice_ = {mode, Current()->item};
        accept();
    }

    std::vector<FoundWorksheet> worksheets_, found_;
    WorksheetChoice& choice_;
    QLineEdit* txtWorksheet_;
    QListWidget* lstWorksheets_;
    QPushButton* cmdEdit_ = nullptr;
    QPushButton* cmdView_ = nullptr;
};

}  // namespace

DialogPtr Make_Go_To(QWidget* parent, std::vector<FoundWorksheet> worksheets, WorksheetChoice& choice) {
    return std::make_unique<GoToDialog>(parent, std::move(worksheets), choice);
}

std::optional<WorksheetChoice> Show_Go_To(QWidget* parent, std::vector<FoundWorksheet> worksheets) {
    WorksheetChoice choice{FormMode::View, {}};
    if (!Run_Modal(*Make_Go_To(parent, std::move(worksheets), choice))) return std::nullopt;
    return choice;
}

}  // namespace tallmar
