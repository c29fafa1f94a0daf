// The rows and columns of a worksheet form for a table view. Only columns that are shown this year are columns here.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include "screens/cell_entry.h"
#include "screens/form_rows.h"

namespace tallmar {

// What a cell tells besides the roles that views know.
enum GridRole : int {
    kShadedRole = Qt::UserRole + 1,  // bool: the cell takes no entry and is grey
    kTotalRole,                      // bool: of a row of totals
    kNumberRole,                     // of a head: the column's number on the form ("1"), may be empty
};

class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    // The model keeps a reference to the form, not a copy.
    explicit GridModel(OpenForm& form, QObject* parent = nullptr);

    OpenForm& Form() const { return form_; }
    const GridColumn& Column(int column) const;
    // -1 where the field is not shown.
    int Column_Of(std::string_view field) const;
    Currency Line(int row) const;
    // -1 where the form shows no such line.
    int Row_Of(Currency line) const;
    int Frozen() const { return frozen_; }

    // Reads everything again; the view's place is kept by line.
    virtual void Requery();
    // Labels of the columns behind the line number while the cursor is in `row`: questionnaires change them by row.
    void Show_Heads_Of(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  protected:
    // The value that the cell shows: of the table, or what was entered and not yet stored.
    virtual Value Cell(int row, const GridColumn& column) const;
    FormRows& Rows() { return rows_; }
    const FormRows& Rows() const { return rows_; }

  private:
    OpenForm& form_;
    FormRows rows_;
    std::vector<int> shown_;  // places in OpenForm::Columns
    QStringList heads_;
    int frozen_ = 0;
};

}  // namespace tallmar
