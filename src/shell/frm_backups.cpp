#include "shell/frm_backups.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "common/format.h"
#include "common/platform.h"
#include "common/program.h"
#include "report/open_backup.h"
#include "report/paths.h"
#include "screens/view/qt_text.h"

namespace tallmar {

namespace {

constexpr const char* kNote =
    "Each report is kept as it was when it was opened, before its first change.  A copy of a backup is opened: the "
    "backup itself stays.";
constexpr const char* kHeads[] = {"Date", "Report", "Size"};
constexpr int kDate = 0, kReport = 1, kSize = 2, kColumns = 3;
constexpr int kWidth = 110, kHeight = 24;  // at first, in characters and lines
constexpr qint64 kKilobyte = 1024;

QTableWidget* Make_Grid(QWidget* parent, std::span<const KeptBackup> backups) {
    auto* grid = new QTableWidget(static_cast<int>(backups.size()), kColumns, parent);
    grid->setObjectName(QStringLiteral("grdBackups"));
    grid->setAccessibleName(QStringLiteral("Backups"));
    grid->setHorizontalHeaderLabels({QLatin1String(kHeads[0]), QLatin1String(kHeads[1]), QLatin1String(kHeads[2])});
    grid->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid->horizontalHeader()->setHighlightSections(false);
    grid->verticalHeader()->hide();
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setTabKeyNavigation(false);
    grid->setTextElideMode(Qt::ElideLeft);
    int row = 0;
    for (const KeptBackup& backup : backups) {
        const bool isDated = backup.taken.serial != 0;
        const qint64 kilobytes = (static_cast<qint64>(backup.size) + kKilobyte - 1) / kKilobyte;
        auto* size = new QTableWidgetItem(QLocale::c().toString(kilobytes) + QStringLiteral(" KB"));
        size->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->setItem(row, kDate,
                      new QTableWidgetItem(isDated ? Qt_Text(Format(backup.taken, "mm/dd/yyyy hh:nn")) : QString()));
        grid->setItem(row, kReport, new QTableWidgetItem(Qt_Text(backup.report)));
        grid->setItem(row, kSize, size);
        ++row;
    }
    grid->resizeColumnsToContents();
    grid->horizontalHeader()->setSectionResizeMode(kReport, QHeaderView::Stretch);
    grid->setCurrentCell(0, kDate);
    return grid;
}

}  // namespace

DialogPtr Make_Backups(QWidget* parent, std::span<const KeptBackup> backups, std::string& chosen) {
    DialogPtr dialog = Make_Dialog("frmBackups", QStringLiteral("Open a Backup"), parent);
    dialog->setSizeGripEnabled(true);
    auto* note = new QLabel(QLatin1String(kNote), dialog.get());
    note->setWordWrap(true);
    QTableWidget* grid = Make_Grid(dialog.get(), backups);
    auto* box = new QDialogButtonBox(dialog.get());
    QPushButton* open = Add_Button(*box, "cmdOpen", QStringLiteral("&Open a Copy ..."), QDialogButtonBox::AcceptRole);
    open->setDefault(true);
    open->setEnabled(!backups.empty());
    Add_Button(*box, "cmdCancel", QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
    const auto choose = [dialog = dialog.get(), grid, backups, &chosen] {
        if (grid->currentRow() < 0) return;
        chosen = backups[static_cast<std::size_t>(grid->currentRow())].path;
        dialog->accept();
    };
    QObject::connect(box, &QDialogButtonBox::accepted, dialog.get(), choose);
    QObject::connect(grid, &QTableWidget::cellDoubleClicked, dialog.get(), choose);
    QObject::connect(box, &QDialogButtonBox::rejected, dialog.get(), &QDialog::reject);

    auto* layout = new QVBoxLayout(dialog.get());
    layout->addWidget(note);
    layout->addWidget(grid, 1);
    layout->addWidget(box);
    const QFontMetrics metrics = grid->fontMetrics();
    dialog->resize(kWidth * metrics.averageCharWidth(), kHeight * metrics.lineSpacing());
    grid->setFocus();
    return dialog;
}

void Open_A_Backup(QWidget* parent) {
    const std::vector<KeptBackup> backups = Kept_Backups();
    if (backups.empty()) {
        The_Platform().Message_Box("No backup is kept yet: a report is kept as it was opened, before its first change.",
                                   kInformation, kProgramTitle);
        return;
    }
    std::string chosen;
    if (!Run_Modal(*Make_Backups(parent, backups, chosen))) return;
    const auto backup = std::ranges::find(backups, chosen, &KeptBackup::path);
    const std::string name = File_Title_Of(backup->report);
    const std::string suggested = name.substr(0, name.rfind('.')) + " (backup).CRF";
    const auto path = The_Platform().Save_File(
        {Dialog_Folder(), suggested, "Name The Copy Of The Backup", ".CRF", "Cost Report Files (*.CRF)|*.CRF"});
    if (path) Open_Copy_Of_Backup(chosen, *path);
}

}  // namespace tallmar
