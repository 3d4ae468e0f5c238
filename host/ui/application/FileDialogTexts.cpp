#include "ui/application/FileDialogTexts.h"

#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLocale>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace {

enum Column { name, size, kind, date };

QString kindOf(const QFileInfo& file)
{
    if (file.isDir())
        return QStringLiteral("Dossier");
    return file.suffix().isEmpty() ? QStringLiteral("Fichier") : QStringLiteral("Fichier ") + file.suffix().toUpper();
}

class FileTexts : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& at) const override
    {
        QStyledItemDelegate::initStyleOption(option, at);
        const QLocale french(QLocale::French, QLocale::France);
        const QFileInfo file(at.siblingAtColumn(name).data(QFileSystemModel::FilePathRole).toString());
        if (at.column() == size)
            option->text =
                file.isDir() ? QString() : french.formattedDataSize(file.size(), 1, QLocale::DataSizeTraditionalFormat);
        else if (at.column() == kind)
            option->text = kindOf(file);
        else
            option->text = french.toString(file.lastModified(), QStringLiteral("dd/MM/yyyy HH:mm"));
    }
};

} // namespace

void tellFilesInFrench(QFileDialog& dialog)
{
    auto* const list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!list || list->itemDelegateForColumn(size))
        return;
    auto* const texts = new FileTexts(list);
    for (const int column : {size, kind, date})
        list->setItemDelegateForColumn(column, texts);
}
