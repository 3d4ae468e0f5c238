#include <filesystem>

#include "ap/DocumentList.h"
#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace {

AcDbObjectId blockNamed(const std::wstring& name)
{
    AcDbBlockTable* blocks = nullptr;
    AcDbObjectId id;
    if (drawing().getSymbolTable(blocks, AcDb::kForRead) != Acad::eOk)
        return id;
    blocks->getAt(name.c_str(), id);
    blocks->close();
    return id;
}

void listBlocks()
{
    AcDbBlockTable* blocks = nullptr;
    if (drawing().getSymbolTable(blocks, AcDb::kForRead) != Acad::eOk)
        return;
    AcDbSymbolTableIterator* made = nullptr;
    blocks->newIterator(made);
    blocks->close();
    const std::unique_ptr<AcDbSymbolTableIterator> each(made);
    std::size_t count = 0;
    for (; !each->done(); each->step()) {
        AcDbObjectId id;
        each->getRecordId(id);
        const std::wstring name = recordName(id);
        if (name.empty() || name.front() == L'*')
            continue;
        say(L"  " + name);
        ++count;
    }
    say(countText(count, L"bloc") + L" dans le dessin.");
}

/// The file that a name means: as it stands, or in the drawing's folder, with or without an extension.
std::wstring fileOf(const std::wstring& name)
{
    const std::wstring folder = DocumentList::instance().current()->folder();
    for (const std::wstring& base : {std::wstring(), folder})
        for (const wchar_t* extension : {L"", L".dxf", L".dwg"}) {
            std::error_code error;
            if (std::filesystem::is_regular_file(platform::nativePath(base + name + extension), error))
                return base + name + extension;
        }
    return {};
}

std::wstring stem(const std::wstring& path)
{
    const auto slash = path.find_last_of(L"/\\") + 1; // npos + 1 is 0
    const auto dot = path.find_last_of(L'.');
    return path.substr(slash, dot == std::wstring::npos || dot < slash ? dot : dot - slash);
}

/// The drawing of a file becomes a block. @throws CommandFailed when it cannot be read.
AcDbObjectId blockFromFile(const std::wstring& blockName, const std::wstring& path)
{
    AcDbDatabase source(false, true);
    if (source.readDwgFile(path.c_str()) != Acad::eOk)
        throw CommandFailed(source.lastError());
    AcDbObjectId block;
    if (drawing().insert(block, blockName.c_str(), &source) != Acad::eOk)
        throw CommandFailed(L"Le fichier « " + path + L" » ne peut être inséré");
    return block;
}

/// A block of the drawing, or made of a file; "name=file" makes it of another file than its name tells.
AcDbObjectId blockCalled(const std::wstring& typed)
{
    const auto equals = typed.find(L'=');
    const std::wstring name = stem(typed.substr(0, equals));
    if (const AcDbObjectId present = blockNamed(name); !present.isNull())
        return present;
    const std::wstring path = fileOf(equals == std::wstring::npos ? typed : typed.substr(equals + 1));
    if (!path.empty())
        return blockFromFile(name, path);
    throw CommandFailed(L"Ni bloc ni fichier de ce nom : « " + typed + L" »");
}

AcDbObjectId askBlock()
{
    for (;;) {
        const auto former = variable<std::wstring>(L"INSNAME");
        const std::wstring otherwise = former.empty() ? L"" : L" <" + former + L">";
        const std::wstring typed = Prompt(L"Entrez le nom du bloc ou [?]" + otherwise + L" : ").name();
        if (typed == L"?") {
            listBlocks();
            continue;
        }
        const std::wstring name = typed.empty() ? former : typed;
        if (name.empty())
            throw CommandCancelled();
        const AcDbObjectId block = blockCalled(name);
        setVariable(L"INSNAME", recordName(block));
        return block;
    }
}

double askScale(const wchar_t* axis, double otherwise)
{
    return Prompt(L"Spécifiez le facteur d'échelle " + std::wstring(axis) + L" <" + lengthText(otherwise) + L"> : ")
        .nonZero()
        .real()
        .value.value_or(otherwise);
}

/// X, or with XYZ three of them.
AcGeScale3d askScales()
{
    const auto given =
        Prompt(L"Spécifiez le facteur d'échelle X ou [XYZ] <1> : ").nonZero().keywords(L"XYZ _ XYZ").real();
    if (given.is(L"XYZ")) {
        const double x = askScale(L"X", 1.0), y = askScale(L"Y", x);
        return {x, y, askScale(L"Z", x)};
    }
    const double x = given.value.value_or(1.0);
    return {x, askScale(L"Y", x), x};
}

/// What the references of a block are to have.
std::vector<AcDbObjectId> attributeDefinitions(AcDbObjectId block)
{
    std::vector<AcDbObjectId> definitions;
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
    AcDbBlockTableRecordIterator* made = nullptr;
    if (!record.object() || record->newIterator(made) != Acad::eOk)
        return definitions;
    const std::unique_ptr<AcDbBlockTableRecordIterator> each(made);
    for (; !each->done(); each->step()) {
        AcDbObjectId id;
        each->getEntityId(id);
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id);
        if (definition.object() && !definition->isConstant())
            definitions.push_back(id);
    }
    return definitions;
}

/// The attribute's text: asked for, or that of the definition.
std::wstring askValue(const AcDbAttributeDefinition& definition)
{
    const std::wstring usual = definition.textStringConst();
    if (variable<short>(L"ATTREQ") == 0 || definition.isPreset())
        return usual;
    const std::wstring prompt = *definition.promptConst() ? definition.promptConst() : definition.tagConst();
    const std::wstring typed = Prompt(prompt + (usual.empty() ? L"" : L" <" + usual + L">") + L" : ").text();
    return typed.empty() ? usual : typed;
}

struct AttributeValue {
    AcDbObjectId definition;
    std::wstring text;
};

std::vector<AttributeValue> askAttributes(AcDbObjectId block)
{
    std::vector<AttributeValue> values;
    const auto definitions = attributeDefinitions(block);
    if (!definitions.empty() && variable<short>(L"ATTREQ") != 0)
        say(L"Entrez les valeurs des attributs");
    for (const AcDbObjectId id : definitions) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id);
        values.push_back({id, askValue(*definition.object())});
    }
    return values;
}

void place(std::unique_ptr<AcDbBlockReference> reference, const std::vector<AttributeValue>& values)
{
    const AcGeMatrix3d toWorld = reference->blockTransform();
    const AcDbObjectId id = addToDrawing(std::move(reference));
    change<AcDbBlockReference>(id, [&](AcDbBlockReference& placed) {
        for (const AttributeValue& value : values) {
            const AcDbObjectPointer<AcDbAttributeDefinition> definition(value.definition);
            auto attribute = std::make_unique<AcDbAttribute>();
            attribute->setPropertiesFrom(definition.object());
            attribute->setAttributeFromBlock(definition.object(), toWorld);
            attribute->setTextString(value.text.c_str());
            if (placed.appendAttribute(attribute.get()) == Acad::eOk)
                attribute.release()->close();
        }
        return Acad::eOk;
    });
}

} // namespace

void commands::insert()
{
    const AcDbObjectId block = askBlock();
    if (block == drawing().currentSpaceId())
        throw CommandFailed(L"L'espace objet ne s'insère pas dans lui-même");
    const AcGePoint3d position = askPoint(L"Spécifiez le point d'insertion : ");
    auto reference = std::make_unique<AcDbBlockReference>(position, block);
    reference->setScaleFactors(askScales());
    reference->setRotation(
        Prompt(L"Spécifiez l'angle de rotation <" + directionText(variable<double>(L"ANGBASE")) + L"> : ")
            .from(position)
            .direction()
            .value.value_or(variable<double>(L"ANGBASE")));
    const auto values = askAttributes(block);
    place(std::move(reference), values);
}
