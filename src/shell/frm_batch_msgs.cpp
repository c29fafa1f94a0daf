#include "shell/frm_batch_msgs.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr const char* kHeads[] = {"Level", "Form", "Message"};
constexpr int kMessage = 2, kColumns = 3;
constexpr int kCharacters = 4;            // of level and form
constexpr int kWidth = 90, kHeight = 26;  // of the window at first, in characters and lines

// What a message is no help with by itself.
struct Advice {
    std::string_view about;
    const char* advice;
};
constexpr const char* kOpenBackup =
    "A line or a worksheet that is needed here is gone from the report.  Open a backup of the report from before "
    "(Report File, Open a Backup), or bring the line back.";
constexpr Advice kAdvice[] = {
    {"record found with LineNum", kOpenBackup},
    {"No current record", kOpenBackup},
    {"Unknown table", kOpenBackup},
    {"The disk is full", "Make room on the disk where the report is, and do it once more."},
    {"is in use", "Another program is at work on the report.  Wait for it to end, and do it once more."},
    {"is read only", "The report cannot be written.  Save it under another name, in a folder of yours."},
};

QString Advice_On(std::string_view message) {
    for (const Advice& row : kAdvice) {
        if (message.find(row.about) != std::string_view::npos) return QLatin1String(row.advice);
    }
    return {};
}

// Boxes break their lines by a carriage return.
QString Broken(std::string_view text) {
    return Qt_Text(text)
        .replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

void Fill(QTableWidget& grid, std::span<const Platform::BatchMessage> rows) {
    grid.setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < grid.rowCount(); ++row) {
        const Platform::BatchMessage& message = rows[static_cast<std::size_t>(row)];
        const std::string_view cells[] = {message.level, message.form, message.message};
        for (int column = 0; column < kColumns; ++column) {
            auto* cell = new QTableWidgetItem(Broken(cells[column]));
            cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            cell->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
            grid.setItem(row, column, cell);
        }
    }
}

// The first two columns hold four characters, and whatever more their heads and rows need; the message takes the rest
// and wraps.
void Set_Widths(QTableWidget& grid) {
    const int least = grid.fontMetrics().horizontalAdvance(QString(kCharacters, QLatin1Char('W')));
    QHeaderView& head = *grid.horizontalHeader();
    grid.resizeColumnsToContents();
    for (int column = 0; column < kMessage; ++column) {
        head.resizeSection(column, std::max(least, head.sectionSize(column)));
        head.setSectionResizeMode(column, QHeaderView::Interactive);
    }
    head.setSectionResizeMode(kMessage, QHeaderView::Stretch);
    auto* later = new QTimer(&grid);
    later->setSingleShot(true);
    QObject::connect(later, &QTimer::timeout, &grid, &QTableWidget::resizeRowsToContents);
    QObject::connect(&head, &QHeaderView::sectionResized, later, [later] { later->start(0); });
}

// The selected rows, or all of them, as lines with tabs.
void Copy_Rows(const QTableWidget& grid) {
    QString lines;
    const bool all = !grid.selectionModel()->hasSelection();
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (!all && !grid.selectionModel()->isRowSelected(row)) continue;
        for (int column = 0; column < kColumns; ++column) {
            lines += grid.item(row, column)->text().replace(QLatin1Char('\n'), QLatin1Char(' '));
            lines += QLatin1Char(column == kMessage ? '\n' : '\t');
        }
    }
    QGuiApplication::clipboard()->setText(lines);
}

void Add_Actions(QTableWidget& grid) {
    auto* copy = new QAction(QStringLiteral("&Copy"), &grid);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, &grid, [&grid] { Copy_Rows(grid); });
    auto* all = new QAction(QStringLiteral("Select &All"), &grid);
    QObject::connect(all, &QAction::triggered, &grid, &QTableWidget::selectAll);
    grid.addActions({copy, all});
    grid.setContextMenuPolicy(Qt::ActionsContextMenu);
}

QTableWidget* Make_Grid(QWidget* parent, std::span<const Platform::BatchMessage> rows) {
    auto* grid = new QTableWidget(0, kColumns, parent);
    grid->setObjectName(QStringLiteral("flxGrid"));
    grid->setAccessibleName(QStringLiteral("Messages"));
    grid->setHorizontalHeaderLabels({QLatin1String(kHeads[0]), QLatin1String(kHeads[1]), QLatin1String(kHeads[2])});
    grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid->horizontalHeader()->setHighlightSections(false);
    grid->verticalHeader()->hide();
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setTabKeyNavigation(false);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    grid->setWordWrap(true);
    Fill(*grid, rows);
    Set_Widths(*grid);
    Add_Actions(*grid);
    return grid;
}

// Below the list: what to do about the message that the cursor is on. It has no room while there is nothing to say.
QLabel* Make_Advice(QTableWidget& grid) {
    auto* label = new QLabel(grid.parentWidget());
    label->setObjectName(QStringLiteral("lblAdvice"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->hide();
    QObject::connect(&grid, &QTableWidget::currentCellChanged, label, [label, &grid](int row) {
        label->setText(row < 0 ? QString() : Advice_On(Plain_Text(grid.item(row, kMessage)->text())));
        label->setVisible(!label->text().isEmpty());
    });
    return label;
}

}  // namespace

DialogPtr Make_Batch_Msgs(QWidget* parent, std::string_view title, std::span<const Platform::BatchMessage> rows) {
    DialogPtr dialog = Make_Dialog("frmBatchMsgs", QStringLiteral("Messages"), parent);
    dialog->setSizeGripEnabled(true);
    auto* heading = new QLabel(Qt_Text(title), dialog.get());
    heading->setObjectName(QStringLiteral("tbTitle"));
    heading->setWordWrap(true);
    QTableWidget* grid = Make_Grid(dialog.get(), rows);
    auto* box = new QDialogButtonBox(dialog.get());
    Add_Button(*box, "cmdClose", QStringLiteral("&Close"), QDialogButtonBox::RejectRole)->setDefault(true);
    QObject::connect(box, &QDialogButtonBox::rejected, dialog.get(), &QDialog::reject);

    auto* layout = new QVBoxLayout(dialog.get());
    layout->addWidget(heading);
    layout->addWidget(grid, 1);
    layout->addWidget(Make_Advice(*grid));
    layout->addWidget(box);
    const QFontMetrics metrics = grid->fontMetrics();
    dialog->resize(kWidth * metrics.averageCharWidth(), kHeight * metrics.lineSpacing());
    if (grid->rowCount() > 0) grid->setCurrentCell(0, kMessage, QItemSelectionModel::NoUpdate);
    grid->setFocus();
    return dialog;
}

void Show_Batch_Msgs(QWidget* parent, std::string_view title, std::span<const Platform::BatchMessage> rows) {
    if (!rows.empty()) Run_Modal(*Make_Batch_Msgs(parent, title, rows));
}

}  // namespace tallmar
