#include "shell/frm_help_keys.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tallmar {

namespace {

constexpr KeyRow kRows[] = {
    {"", "In a worksheet"},
    {"Enter, Shift+Enter", "take the entry and go down, up"},
    {"Tab, Shift+Tab", "take the entry and go to the next, the previous entry"},
    {"F2", "edit what the cell holds"},
    {"Escape", "give up the entry; without one, what was entered in the row"},
    {"Delete", "clear the selected cells"},
    {"Alt+Down, F4", "the list of a cell that has one"},
    {"Shift+F1", "the whole head of the column"},
    {"Ctrl+Home, Ctrl+End", "the first, the last cell"},
    {"Ctrl+D", "fill the selection down from its first row, or the cell from the one above"},
    {"Ctrl+C, Ctrl+V", "copy and paste cells"},
    {"Ctrl+Shift+C", "copy with the heads of the columns"},
    {"Ctrl+Z", "undo"},
    {"Ctrl+Y, Ctrl+Shift+Z", "redo"},
    {"Ctrl+S", "store the row now"},
    {"Ctrl+F", "find"},
    {"F3, Shift+F3", "find the next, the previous"},
    {"", "Worksheets and windows"},
    {"Ctrl+G", "go to a worksheet: type s3, a-4 or a word of its title"},
    {"F9", "calculate the report"},
    {"Ctrl+F6, Ctrl+Shift+F6", "the next, the previous window"},
    {"Ctrl+W", "close the form"},
    {"Ctrl++, Ctrl+-, Ctrl+0", "larger, smaller, normal letters; so does Ctrl with the wheel"},
    {"F10, Alt+E, Alt+V", "the menus; Edit; View"},
    {"", "The report"},
    {"Ctrl+N, Ctrl+O", "a new report, an existing one"},
    {"Ctrl+Shift+S", "save under another name"},
    {"Ctrl+Q", "leave the program"},
    {"F1", "the instructions of the form"},
};

constexpr int kKeys = 0, kDoes = 1, kColumns = 2;
constexpr int kWidth = 100, kHeight = 34;  // at first, in characters and lines

QTableWidget* Make_Grid(QWidget* parent) {
    auto* grid = new QTableWidget(static_cast<int>(std::size(kRows)), kColumns, parent);
    grid->setObjectName(QStringLiteral("grdKeys"));
    grid->setAccessibleName(QStringLiteral("Keys"));
    grid->setHorizontalHeaderLabels({QStringLiteral("Key"), QStringLiteral("What it does")});
    grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid->horizontalHeader()->setHighlightSections(false);
    grid->verticalHeader()->hide();
    grid->setShowGrid(false);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setTabKeyNavigation(false);
    int row = 0;
    for (const KeyRow& key : kRows) {
        const bool isHeading = *key.keys == '\0';
        auto* keys = new QTableWidgetItem(QLatin1String(isHeading ? key.does : key.keys));
        auto* does = new QTableWidgetItem(QLatin1String(isHeading ? "" : key.does));
        if (isHeading) {
            QFont bold = grid->font();
            bold.setBold(true);
            keys->setFont(bold);
            grid->setSpan(row, kKeys, 1, kColumns);
        }
        grid->setItem(row, kKeys, keys);
        grid->setItem(row, kDoes, does);
        ++row;
    }
    grid->resizeColumnToContents(kKeys);
    grid->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    grid->horizontalHeader()->setSectionResizeMode(kDoes, QHeaderView::Stretch);
    grid->setCurrentCell(0, kKeys, QItemSelectionModel::NoUpdate);
    return grid;
}

}  // namespace

std::span<const KeyRow> Key_Rows() {
    return kRows;
}

DialogPtr Make_Help_Keys(QWidget* parent, const QString& note) {
    DialogPtr dialog = Make_Dialog("frmHelpKeys", QStringLiteral("Keys"), parent);
    dialog->setSizeGripEnabled(true);
    auto* layout = new QVBoxLayout(dialog.get());
    if (!note.isEmpty()) {
        auto* label = new QLabel(note, dialog.get());
        label->setObjectName(QStringLiteral("lblNote"));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        layout->addWidget(label);
    }
    QTableWidget* grid = Make_Grid(dialog.get());
    layout->addWidget(grid, 1);
    auto* box = new QDialogButtonBox(dialog.get());
    Add_Button(*box, "cmdClose", QStringLiteral("&Close"), QDialogButtonBox::RejectRole)->setDefault(true);
    QObject::connect(box, &QDialogButtonBox::rejected, dialog.get(), &QDialog::reject);
    layout->addWidget(box);
    const QFontMetrics metrics = grid->fontMetrics();
    dialog->resize(kWidth * metrics.averageCharWidth(), kHeight * metrics.lineSpacing());
    grid->setFocus();
    return dialog;
}

void Show_Help_Keys(QWidget* parent, const QString& note) {
    Run_Modal(*Make_Help_Keys(parent, note));
}

}  // namespace tallmar
