// The rows and columns of a worksheet form for a table view. Only columns that are shown this year are columns here.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <string_view>
#include <vector>

#include "screens/form_rows.h"
#include "screens/open_form.h"

namespace tallmar {

// Roles of a cell beside those that views know.
enum GridRole : int {
    kShadedRole = Qt::UserRole + 1,  // bool: the cell takes no entry and is grey
    kTotalRole,                      // bool: of a row of totals
    kLabelRole,                      // bool: a line number, a name or the like that takes no entry
    kPendingRole,                    // bool: of a row with entries that are not stored yet
    kNumberRole,                     // of a head: the column's number on the form ("1"), may be empty
};

class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    // Opens the form; requires that the table is there.
    GridModel(const FormDescription& description, Item item, QObject* parent = nullptr);

    // Lives as long as the model.
    OpenForm& Form() { return form_; }
    const OpenForm& Form() const { return form_; }
    const GridColumn& Column(int column) const;
    // -1 where the field is not shown.
    int Column_Of(std::string_view field) const;
    Currency Line(int row) const;
    // -1 where the form shows no such line.
    int Row_Of(Currency line) const;
    // The columns from the left that stay in sight.
    int Frozen() const { return frozen_; }

    // Reads everything again; the view's place is kept by line.
    virtual void Reload();
    // Labels of the columns behind the line number while the cursor is in `row`: questionnaires change them by row.
    void Show_Heads_Of(int row);
    // A head in one piece: "4 Contracted Purchased Services".
    QString Whole_Head(int column) const;
    // What the cell holds: of the table, or entered and not yet stored.
    Value Value_At(const QModelIndex& index) const { return Cell(index.row(), Column(index.column())); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    // EditRole is the plain text of the value.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  protected:
    // The value that the cell shows: of the table, or what was entered and not yet stored.
    virtual Value Cell(int row, const GridColumn& column) const;
    // Takes rows that were read of the same form in place of reading them.
    void Reload_From(FormRows&& rows);
    // Shows a row that was read again after it was stored.
    void Reload_Row(int row, const Row& stored);
    // The rows or what is entered in them have changed, and no line came or went: as dataChanged for all of them.
    void Show_All();
    FormRows& Rows() { return rows_; }
    const FormRows& Rows() const { return rows_; }

  private:
    bool Is_Right(int row, const GridColumn& column) const;
    QString Display_Text(int row, const GridColumn& column) const;
    class Reset;
    void Choose_Columns();
    void Note_Totals();

    OpenForm form_;
    FormRows rows_;
    std::vector<int> shown_;  // places in OpenForm::Columns
    std::vector<bool> totals_;
    QStringList heads_;
    int frozen_ = 0;
    // The row that was read last, as the rules take it: a table is painted row by row.
    mutable int placed_ = -1;
    mutable RowUnderEdit place_;
};

}  // namespace tallmar
