#include "ui/window/ModuleMenus.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include "ui/window/ToolIcons.h"

namespace {

/// One line, read into the menus. @return why it was left out, in French; empty when it was not.
QString readLine(const QString& line, std::vector<Menu>& menus)
{
    if (line.startsWith(u'[')) {
        const QString title = line.mid(1, line.size() - 2).trimmed();
        if (!line.endsWith(u']') || title.isEmpty())
            return QStringLiteral("un titre de menu s'écrit « [Titre] »");
        menus.push_back({title.toStdString(), {}});
        return {};
    }
    if (menus.empty())
        return QStringLiteral("une entrée ne peut pas précéder le premier titre « [Menu] »");
    if (line == QLatin1String("-")) {
        menus.back().items.emplace_back();
        return {};
    }
    const QStringList fields = line.split(u'|');
    const QString caption = fields.at(0).trimmed(), command = fields.value(1).trimmed(),
                  picture = fields.value(2).trimmed();
    if (fields.size() > 3 || caption.isEmpty() || command.isEmpty())
        return QStringLiteral("une entrée s'écrit « libellé | commande » ou « libellé | commande | icône »");
    if (command.startsWith(u':'))
        return QStringLiteral("« %1 » n'est pas une commande").arg(command);
    if (!picture.isEmpty() && !isToolPicture(picture))
        return QStringLiteral("« %1 » n'est ni une icône connue, ni un tracé M, L, C, Z").arg(picture);
    menus.back().items.push_back({caption.toStdString(), command.toStdString(), "", picture.toStdString()});
    return {};
}

} // namespace

ModuleMenus readModuleMenus(const QByteArray& text, const QString& fileName)
{
    ModuleMenus read;
    int number = 0;
    for (const QByteArray& bytes : text.split('\n')) {
        ++number;
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString line = QString(utf8(bytes)).trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QString reason = utf8.hasError() ? QStringLiteral("ce n'est pas de l'UTF-8") : readLine(line, read.menus);
        if (!reason.isEmpty())
            read.faults << QStringLiteral("%1, ligne %2 : %3.").arg(fileName).arg(number).arg(reason);
    }
    return read;
}

std::optional<ModuleMenus> menusOfModule(const QString& modulePath)
{
    const QFileInfo module(modulePath);
    QFile file(module.dir().filePath(module.completeBaseName() + QLatin1String(".menu")));
    if (!file.exists())
        return std::nullopt;
    const QString name = QFileInfo(file).fileName();
    if (!file.open(QIODevice::ReadOnly))
        return ModuleMenus{{}, {QStringLiteral("%1 ne peut pas être lu : %2.").arg(name, file.errorString())}};
    return readModuleMenus(file.readAll(), name);
}
