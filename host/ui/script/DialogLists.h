#pragma once

#include <optional>
#include <QAbstractItemView>
#include <QString>
#include <QStringList>
#include <vector>

/// One list, table or tree of a dialog, as a script sees it: rows and columns count from 1, a column has the number or
/// the title that its header shows, the rows of a tree are those that can be seen.
class DialogList {
public:
    explicit DialogList(QAbstractItemView& view) : m_view(view) {}

    int rowCount() const { return static_cast<int>(rows().size()); }
    QString cell(const QString& row, const QString& column) const;
    QStringList titles() const;
    /// "1,3-5"; empty when no row is selected.
    QString selection() const;

    /// Writes a cell as if it had been edited there.
    void setCell(const QString& row, const QString& column, const QString& value);
    /// Does what "sélection 1,3-5", "tout", "rien", "ouvrir 2", "titre Code", "cocher 1", "décocher 1" say.
    /// @return false when it is none of these. All throw ScriptError.
    bool act(const QString& action);

private:
    std::vector<QModelIndex> rows() const;
    QModelIndex requireRow(const QString& number) const;
    int requireColumn(const QString& column) const;
    std::vector<QModelIndex> requireRows(const QString& ranges) const;
    QModelIndex requireCell(const QString& row, const QString& column) const;

    void select(const QString& ranges);
    void selectAll(const QString& nothing);
    void selectNone(const QString& nothing);
    void open(const QString& cell);
    void clickTitle(const QString& title);
    void check(const QString& ranges) { setChecked(ranges, Qt::Checked); }
    void uncheck(const QString& ranges) { setChecked(ranges, Qt::Unchecked); }
    void setChecked(const QString& ranges, Qt::CheckState state);

    QAbstractItemView& m_view;
};

/// The list of a dialog that is called so: "liste" for the only one, else its label, the title of its group or tab, or
/// its object name. Null when there is none. @throws ScriptError when several are.
QAbstractItemView* findList(const QWidget& dialog, const QString& name);
/// The names to use, as a message lists them.
QString listNames(const QWidget& dialog);
