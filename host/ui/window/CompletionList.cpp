#include "ui/window/CompletionList.h"

#include <algorithm>

CompletionList::CompletionList(QWidget* parent) : QListWidget(parent)
{
    setObjectName(QStringLiteral("listeCompletion"));
    setWindowFlags(Qt::ToolTip);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { emit clickedOn(item->text()); });
}

void CompletionList::offer(const QStringList& names, const QWidget& above)
{
    clear();
    if (names.isEmpty())
        return hide();
    addItems(names);
    setCurrentRow(-1);
    constexpr int mostShown = 10, border = 4;
    const int rows = std::min<int>(mostShown, static_cast<int>(names.size()));
    resize(std::max(180, sizeHintForColumn(0) + 30), rows * sizeHintForRow(0) + border);
    move(above.mapToGlobal(QPoint(0, -height())));
    show();
}

void CompletionList::step(int by)
{
    const int rows = count();
    if (rows == 0)
        return;
    const int from = currentRow() < 0 && by < 0 ? 0 : currentRow();
    setCurrentRow((from + by + rows) % rows);
}

QString CompletionList::chosen() const
{
    const QListWidgetItem* const item = isVisible() ? currentItem() : nullptr;
    return item ? item->text() : QString();
}
