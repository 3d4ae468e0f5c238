#include "ui/window/CommandNames.h"

#include <algorithm>
#include <memory>

#include "ap/DocumentList.h"
#include "ed/CommandStack.h"
#include "lisp/LispFunctionTable.h"

namespace {

QStringList globalNames()
{
    QStringList names;
    const std::unique_ptr<AcEdCommandIterator> commands(CommandStack::instance().iterator());
    for (; !commands->done(); commands->next())
        names.append(u'_' + QString::fromWCharArray(commands->command()->globalName()));
    return names;
}

QStringList localNames()
{
    QStringList names;
    for (const std::wstring& name : CommandStack::instance().localNames())
        names.append(QString::fromStdWString(name));
    return names;
}

/// Functions "C:NAME" are commands.
QStringList lispNames()
{
    QStringList names;
    Document* const document = DocumentList::instance().current();
    if (!document)
        return names;
    for (const std::wstring& function : LispFunctionTable::of(*document).names()) {
        const QString name = QString::fromStdWString(function);
        if (name.startsWith(QLatin1String("c:"), Qt::CaseInsensitive))
            names.append(name.mid(2).toUpper());
    }
    return names;
}

} // namespace

QStringList commandNamesFrom(const QString& start, int most)
{
    QStringList names = start.startsWith(u'_') ? globalNames() : localNames() + lispNames();
    names.removeIf([&start](const QString& name) { return !name.startsWith(start, Qt::CaseInsensitive); });
    names.sort(Qt::CaseInsensitive);
    names.removeDuplicates();
    return names.mid(0, most);
}
