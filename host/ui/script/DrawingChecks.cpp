#include "ui/script/DrawingChecks.h"

#include <array>
#include <memory>
#include <QFileInfo>
#include <QRegularExpression>

#include "ap/DocumentList.h"
#include "db/DatabaseImpl.h"
#include "lisp/drawing/LispSession.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "rx/Console.h"
#include "ui/script/FileDialogAnswer.h"
#include "ui/script/ScriptCheck.h"
#include "ui/script/ScriptError.h"
#include "ui/script/ScriptText.h"

#include "dbents.h"
#include "dbsymtb.h"

namespace {

Document& currentDocument()
{
    if (Document* const document = DocumentList::instance().current())
        return *document;
    throw ScriptError(QStringLiteral("aucun dessin n'est ouvert."));
}

AcDbObjectId layerNamed(AcDbDatabase& drawing, const QString& name)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbLayerTable> layers(drawing.layerTableId());
    if (!layers.object() || layers->getAt(name.toStdWString().c_str(), id) != Acad::eOk)
        throw ScriptError(QStringLiteral("le dessin n'a pas de calque « %1 ».").arg(name));
    return id;
}

/// Of model space; an empty class or layer is any.
std::size_t entityCount(AcDbDatabase& drawing, const QString& className, const QString& layerName)
{
    const AcDbObjectId layer = layerName.isEmpty() ? AcDbObjectId() : layerNamed(drawing, layerName);
    const std::wstring wanted = className.toStdWString();
    const AcDbObjectPointer<AcDbBlockTableRecord> space(AcDbObjectId(drawing.impl().blocks().modelSpace()));
    AcDbBlockTableRecordIterator* made = nullptr;
    space->newIterator(made);
    const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
    std::size_t count = 0;
    for (; entities && !entities->done(); entities->step()) {
        AcDbObjectId id;
        entities->getEntityId(id);
        const std::wstring name = platform::wideFromUtf8(drawing.impl().typeName(*recordOf(id)));
        if (!wanted.empty() && !platform::equalNoCase(name, wanted))
            continue;
        if (!layer.isNull()) {
            const AcDbObjectPointer<AcDbEntity> entity(id);
            if (!entity.object() || entity->layerId() != layer)
                continue;
        }
        ++count;
    }
    return count;
}

std::optional<QString> counted(const QString& subject, const QString&)
{
    static const QRegularExpression form(
        QStringLiteral("^entités(?:\\s+(?!calque\\s)(\\S+))?(?:\\s+calque\\s+(.+))?$"));
    const auto match = form.match(subject);
    if (!match.hasMatch())
        return std::nullopt;
    AcDbDatabase& drawing = *currentDocument().database();
    return QString::number(entityCount(drawing, match.captured(1), match.captured(2).trimmed()));
}

std::optional<QString> evaluated(const QString& subject, const QString&)
{
    if (!subject.startsWith(u'('))
        return std::nullopt;
    const LispSession::Answer answer = LispSession::of(currentDocument()).evaluate(subject.toStdWString());
    if (answer.outcome.failed)
        throw ScriptError(QStringLiteral("%1 : %2.").arg(subject, QString::fromStdWString(answer.outcome.message)));
    return scriptValue(QString::fromStdWString(answer.text)); // texts without their quotes
}

std::optional<QString> lastPrinted(const QString& subject, const QString&)
{
    if (subject != u"dernier")
        return std::nullopt;
    return QString::fromStdWString(Console::instance().lastLine());
}

std::optional<QString> ofFile(const QString& subject, const QString& folder)
{
    const QString word = subject.section(u' ', 0, 0), name = subject.section(u' ', 1).trimmed();
    if (name.isEmpty() || (word != u"fichier" && word != u"existe"))
        return std::nullopt;
    const QString path = scriptPath(name, folder, true);
    if (word == u"existe")
        return QFileInfo::exists(path) ? QStringLiteral("oui") : QStringLiteral("non");
    return scriptText(contentOfFile(path));
}

} // namespace

std::optional<QString> drawingValue(const QString& subject, const QString& scriptFolder)
{
    for (const auto& kind : {counted, evaluated, lastPrinted, ofFile})
        if (auto value = kind(subject, scriptFolder))
            return value;
    return std::nullopt;
}
