#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/Prompt.h"
#include "commands/SymbolRecords.h"

#include "dbsymtb.h"

std::vector<AcDbObjectId> recordsOf(AcDbObjectId table)
{
    std::vector<AcDbObjectId> records;
    const AcDbObjectPointer<AcDbSymbolTable> opened(table);
    AcDbSymbolTableIterator* made = nullptr;
    if (!opened.object() || opened->newIterator(made) != Acad::eOk)
        return records;
    const std::unique_ptr<AcDbSymbolTableIterator> each(made);
    for (; !each->done(); each->step()) {
        AcDbObjectId id;
        each->getRecordId(id);
        records.push_back(id);
    }
    return records;
}

AcDbObjectId recordNamed(AcDbObjectId table, const std::wstring& name)
{
    const AcDbObjectPointer<AcDbSymbolTable> opened(table);
    AcDbObjectId id;
    if (opened.object() && !name.empty())
        opened->getAt(name.c_str(), id);
    return id;
}

namespace {

/// Names that every drawing has, or that are the program's own.
bool isFixed(const std::wstring& name)
{
    return name.empty() || name == L"0" || name.front() == L'*';
}

} // namespace

void renameRecord(AcDbObjectId record, const std::wstring& former)
{
    if (record.isNull())
        throw CommandFailed(command_texts::isMissing(L"", former));
    if (isFixed(recordName(record)))
        throw CommandFailed(L"« " + recordName(record) + L" » ne peut être renommé");
    const std::wstring name = Prompt(L"Entrez le nouveau nom : ").name();
    const Acad::ErrorStatus es = change<AcDbSymbolTableRecord>(
        record, [&](AcDbSymbolTableRecord& opened) { return opened.setName(name.c_str()); });
    if (es == Acad::eDuplicateRecordName)
        throw CommandFailed(command_texts::isThere(L"", name));
    if (es != Acad::eOk)
        throw CommandFailed(command_texts::isNotAllowed(L"Le nom ", name));
}

void commands::rename()
{
    const std::wstring kind = Prompt(L"Entrez le type d'objet à renommer [Bloc/CAlque/STyle/Typeligne] : ")
                                  .keywords(L"Bloc CAlque STyle Typeligne _ Block LAyer Style LType")
                                  .keyword();
    if (kind.empty())
        return;
    const AcDbObjectId table = kind == L"Block"   ? drawing().blockTableId()
                               : kind == L"LAyer" ? drawing().layerTableId()
                               : kind == L"Style" ? drawing().textStyleTableId()
                                                  : drawing().linetypeTableId();
    const std::wstring former = Prompt(L"Entrez l'ancien nom : ").name();
    renameRecord(recordNamed(table, former), former);
}
