#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "db/AtomicFile.h"
#include "db/DatabaseImpl.h"
#include "db/DefaultDrawing.h"
#include "db/SavePlan.h"
#include "dwg/DwgConverter.h"
#include "dxf/DxfTexts.h"
#include "dxf/DxfTranscode.h"
#include "platform/CodePage.h"
#include "platform/Paths.h"

#include "dbapserv.h"
#include "dbdict.h"
#include "dbsymtb.h"

namespace fs = std::filesystem;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)

namespace {

std::wstring extensionOf(const std::wstring& name)
{
    const auto dot = name.find_last_of(L"./\\");
    return dot == std::wstring::npos || name[dot] != L'.' ? std::wstring() : foldedName(name.substr(dot));
}

std::wstring withExtension(const std::wstring& name, const wchar_t* extension)
{
    return name.substr(0, name.size() - extensionOf(name).size()) + extension;
}

/// The file that a name stands for: the drawing itself, or the ".dxf" of the same stem for a ".dwg" that is not there.
fs::path fileToRead(const std::wstring& name)
{
    const fs::path path = platform::nativePath(name);
    std::error_code error;
    if (extensionOf(name) == L".dwg" && !fs::exists(path, error))
        return platform::nativePath(withExtension(name, L".dxf"));
    return path;
}

/// A drawing saved under its DWG's name goes to the ".dxf" of that stem. Whether one stands there that is not ours:
/// the user did not choose its name, so it must not be replaced.
bool isAnotherDrawing(const AcDbDatabaseImpl& database, const std::wstring& dwg, const std::wstring& dxf)
{
    std::error_code error;
    const fs::path target = platform::nativePath(dxf);
    return fs::exists(platform::nativePath(dwg), error) && fs::exists(target, error) &&
           !fs::equivalent(platform::nativePath(database.fileName), target, error);
}

/// Loads a drawing file; a DWG by way of its DXF, which is in memory only: saving never writes over the DWG.
void loadFile(AcDbDatabaseImpl& database, const fs::path& path)
{
    if (extensionOf(platform::wideFromUtf8(path.string())) != L".dwg")
        return database.load(std::make_unique<DxfFile>(path.string()));
    DwgConversion conversion = DwgConverter().convert(path);
    database.load(std::make_unique<DxfFile>(std::move(conversion.dxf), path.string()));
    database.problems().addRemark(conversion.note);
    for (const std::string& loss : conversion.losses)
        database.problems().add(loss);
}

/// Why a file could not be written.
std::wstring reasonOf(const std::error_code& error)
{
    switch (error.value()) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return L"plus de place sur le disque ; le dessin n'est pas enregistré";
    case EACCES:
    case EPERM:
        return L"accès refusé ; le dessin n'est pas enregistré";
    case EFAULT:
        return L"le support du dessin ouvert vient de disparaître ; enregistrez-le sous un autre nom";
    case EROFS:
        return L"disque protégé en écriture ; le dessin n'est pas enregistré";
    case ENOENT:
    case ENOTDIR:
        return L"dossier introuvable ; le dessin n'est pas enregistré";
    default:
        return L"écriture impossible ; le dessin n'est pas enregistré";
    }
}

} // namespace

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : m_impl(std::make_unique<AcDbDatabaseImpl>(*this))
{
    if (buildDefaultDrawing)
        m_impl->load(std::make_unique<DxfFile>(std::string(defaultDrawing()), "dessin neuf"));
}

AcDbDatabase::~AcDbDatabase()
{
    if (acdbHostApplicationServices()->workingDatabase() == this)
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

const ACHAR* AcDbDatabase::lastError() const
{
    return m_impl->lastError.c_str();
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& fileName) const
{
    fileName = m_impl->fileName.c_str();
    return m_impl->fileName.empty() ? Acad::eNotApplicable : Acad::eOk;
}

// ---- reading

Acad::ErrorStatus AcDbDatabase::dxfIn(const ACHAR* fileName, const ACHAR*)
{
    return readDwgFile(fileName);
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* fileName)
{
    if (!fileName || !*fileName)
        return Acad::eInvalidInput;
    if (m_impl->isLoaded())
        return Acad::eNotApplicable;
    const fs::path path = fileToRead(fileName);
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        m_impl->lastError = std::wstring(fileName) + L" : fichier introuvable";
        return Acad::eFileNotFound;
    }
    try {
        loadFile(*m_impl, path);
    } catch (const DxfError& refusal) {
        m_impl->lastError = platform::wideFromUtf8(refusal.what());
        return Acad::eBadDxfFile;
    } catch (const DwgError& refusal) {
        m_impl->lastError = platform::wideFromUtf8(refusal.what());
        return Acad::eDwgNeedsRecovery;
    } catch (const std::system_error& failure) {
        m_impl->lastError = std::wstring(fileName) + L" : " + platform::wideFromUtf8(failure.what());
        return Acad::eFileAccessErr;
    }
    const bool asNamed = path == platform::nativePath(fileName);
    m_impl->fileName = asNamed ? fileName : withExtension(fileName, L".dxf");
    return Acad::eOk;
}

// ---- writing

Acad::ErrorStatus AcDbDatabase::dxfOut(const ACHAR* fileName)
{
    return saveAs(fileName);
}
Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName)
{
    if (!fileName || !*fileName)
        return Acad::eInvalidInput;
    if (!m_impl->isLoaded())
        return Acad::eNoDatabase;
    if (extensionOf(fileName) != L".dwg")
        return m_impl->save(fileName, m_impl->form());
    const std::wstring name = withExtension(fileName, L".dxf");
    if (isAnotherDrawing(*m_impl, fileName, name)) {
        m_impl->lastError =
            name + L" : un autre dessin porte déjà ce nom, à côté du DWG ; enregistrez sous un autre nom";
        return Acad::eFileAccessErr;
    }
    return m_impl->save(name, m_impl->form());
}

Acad::ErrorStatus AcDbDatabaseImpl::save(const std::wstring& name, const DxfForm& as)
{
    const fs::path path = platform::nativePath(name);
    std::error_code error;
    const bool overItself = fs::equivalent(path, m_file->path(), error);
    const FileState present = FileState::of(path.string());
    const bool savedHere = path == m_savedPath;
    if (savedHere ? present.size != 0 && !(present == m_savedState) : overItself && m_file->changedOnDisk()) {
        lastError =
            name + L" : le fichier a été modifié par un autre programme depuis son ouverture ; il n'est pas remplacé";
        return Acad::eFileSharingViolation;
    }
    if (isReadOnly(path) && !replacesReadOnly) {
        lastError = name + readOnlyNotReplaced;
        return Acad::eFileAccessErr;
    }
    const std::size_t lost = m_file->findLost();
    if (lost > 0 && overItself) {
        lastError = name + L" : " + platform::wideFromUtf8(dxf_texts::keepsDamaged);
        return Acad::eFileAccessErr;
    }
    try {
        const SavePlan plan(*this);
        if (overItself && !savedHere && m_file->wasRepaired())
            keepOriginal(path);
        if (as == form()) {
            writeAtomically(path, plan.pieces(), true);
        } else {
            std::string whole;
            for (std::string_view piece : plan.pieces())
                whole += piece;
            const std::string converted = transcodeFile(DxfFile(std::move(whole), m_file->path()), as);
            writeAtomically(path, {converted}, true);
        }
    } catch (const fs::filesystem_error& failure) {
        lastError = name + L" : " + reasonOf(failure.code());
        return Acad::eFileAccessErr;
    } catch (const DxfError& refusal) {
        lastError = platform::wideFromUtf8(refusal.what());
        return Acad::eFileInternalErr;
    }
    if (lost > 0)
        m_problems.add(dxf_texts::rescued(lost));
    if (overItself)
        m_file->acceptDiskState();
    m_savedPath = path;
    m_savedState = FileState::of(path.string());
    fileName = name;
    return Acad::eOk;
}

std::optional<std::wstring> AcDbDatabaseImpl::writeCopy(const fs::path& path)
{
    m_file->findLost();
    try {
        const SavePlan plan(*this);
        writeAtomically(path, plan.pieces(), false);
    } catch (const fs::filesystem_error& failure) {
        return platform::wideFromUtf8(path.string()) + L" : " + reasonOf(failure.code());
    } catch (const DxfError& refusal) {
        return platform::wideFromUtf8(refusal.what());
    }
    return std::nullopt;
}

// ---- tables

namespace {

template <class Table>
Acad::ErrorStatus openTable(AcDbDatabaseImpl& database, NameKind kind, Table*& table, AcDb::OpenMode mode)
{
    return acdbOpenObject(table, AcDbObjectId(database.names(kind).table), mode);
}

} // namespace

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode)
{
    return openTable(*m_impl, NameKind::block, table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode)
{
    return openTable(*m_impl, NameKind::layer, table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode)
{
    return openTable(*m_impl, NameKind::textStyle, table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode)
{
    return openTable(*m_impl, NameKind::linetype, table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode)
{
    return openTable(*m_impl, NameKind::regApp, table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode)
{
    return openTable(*m_impl, NameKind::dimStyle, table, mode);
}

AcDbObjectId AcDbDatabase::blockTableId() const
{
    return AcDbObjectId(m_impl->names(NameKind::block).table);
}
AcDbObjectId AcDbDatabase::layerTableId() const
{
    return AcDbObjectId(m_impl->names(NameKind::layer).table);
}
AcDbObjectId AcDbDatabase::textStyleTableId() const
{
    return AcDbObjectId(m_impl->names(NameKind::textStyle).table);
}
AcDbObjectId AcDbDatabase::linetypeTableId() const
{
    return AcDbObjectId(m_impl->names(NameKind::linetype).table);
}
AcDbObjectId AcDbDatabase::regAppTableId() const
{
    return AcDbObjectId(m_impl->names(NameKind::regApp).table);
}
AcDbObjectId AcDbDatabase::dimStyleTableId() const
{
    return AcDbObjectId(m_impl->names(NameKind::dimStyle).table);
}
AcDbObjectId AcDbDatabase::layerZero() const
{
    return AcDbObjectId(m_impl->named(NameKind::layer, L"0"));
}
AcDbObjectId AcDbDatabase::continuousLinetype() const
{
    return AcDbObjectId(m_impl->named(NameKind::linetype, L"Continuous"));
}
AcDbObjectId AcDbDatabase::byLayerLinetype() const
{
    return AcDbObjectId(m_impl->named(NameKind::linetype, L"ByLayer"));
}
AcDbObjectId AcDbDatabase::byBlockLinetype() const
{
    return AcDbObjectId(m_impl->named(NameKind::linetype, L"ByBlock"));
}

AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const
{
    return AcDbObjectId(m_impl->rootDictionary());
}

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return acdbOpenObject(dictionary, namedObjectsDictionaryId(), mode);
}

AcDbObjectId AcDbDatabase::currentSpaceId() const
{
    // Whatever $TILEMODE says: layouts are not shown, and what is drawn must be seen.
    return AcDbObjectId(m_impl->blocks().modelSpace());
}

// ---- header variables

AcDbObjectId AcDbDatabase::clayer() const
{
    AcDbStub* layer = m_impl->named(NameKind::layer, m_impl->header().text("$CLAYER"));
    return layer ? AcDbObjectId(layer) : layerZero();
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer)
{
    if (layer.database() != this || layer.objectClass() != AcDbLayerTableRecord::desc())
        return Acad::eInvalidInput;
    if (layer.isErased())
        return Acad::eWasErased;
    m_impl->header().setText("$CLAYER", 8, m_impl->recordName(layer.stub()));
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::textstyle() const
{
    AcDbStub* style = m_impl->named(NameKind::textStyle, m_impl->header().text("$TEXTSTYLE"));
    return AcDbObjectId(style ? style : m_impl->named(NameKind::textStyle, L"Standard"));
}

AcDbObjectId AcDbDatabase::celtype() const
{
    AcDbStub* linetype = m_impl->named(NameKind::linetype, m_impl->header().text("$CELTYPE"));
    return linetype ? AcDbObjectId(linetype) : byLayerLinetype();
}

double AcDbDatabase::ltscale() const
{
    return m_impl->header().real("$LTSCALE", 1.0);
}
double AcDbDatabase::celtscale() const
{
    return m_impl->header().real("$CELTSCALE", 1.0);
}
double AcDbDatabase::textsize() const
{
    return m_impl->header().real("$TEXTSIZE", 2.5);
}
AcGePoint3d AcDbDatabase::extmin() const
{
    return m_impl->header().point("$EXTMIN", AcGePoint3d(1e20, 1e20, 1e20));
}
AcGePoint3d AcDbDatabase::extmax() const
{
    return m_impl->header().point("$EXTMAX", AcGePoint3d(-1e20, -1e20, -1e20));
}
AcGePoint3d AcDbDatabase::insbase() const
{
    return m_impl->header().point("$INSBASE", AcGePoint3d::kOrigin);
}

Acad::ErrorStatus AcDbDatabase::updateExt(bool)
{
    AcDbStub* model = m_impl->blocks().modelSpace();
    if (!model)
        return Acad::eMissingSymbolTableRec;
    AcDbExtents all;
    for (AcDbStub* stub : m_impl->blocks().of(model).entities) {
        if (::isErased(*recordOf(stub)))
            continue;
        AcDbExtents own;
        AcDbObjectPointer<AcDbEntity> entity(AcDbObjectId(stub), AcDb::kForRead);
        if (entity.object() && entity->getGeomExtents(own) == Acad::eOk)
            all.addExt(own);
    }
    if (all.isEmpty())
        return Acad::eInvalidExtents;
    m_impl->header().setPoint("$EXTMIN", all.minPoint());
    m_impl->header().setPoint("$EXTMAX", all.maxPoint());
    return Acad::eOk;
}

// ---- objects

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool, const AcDbHandle& handle, Adesk::UInt32)
{
    id = AcDbObjectId(m_impl->byHandle(handle));
    return id.isNull() || !m_impl->holdsObject(*recordOf(id)) ? Acad::eUnknownHandle : Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object)
{
    if (!object)
        return Acad::eNullObjectPointer;
    if (!object->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (!m_impl->isLoaded())
        return Acad::eNoDatabase;
    id = m_impl->adopt(std::unique_ptr<AcDbObject>(object), nullptr);
    return Acad::eOk;
}

void AcDbDatabase::disableUndoRecording(bool disable)
{
    m_impl->undo().setRecording(!disable);
}

bool AcDbDatabase::undoRecording() const
{
    return m_impl->undo().isRecording();
}

Acad::ErrorStatus AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor) const
{
    auto& reactors = m_impl->reactors();
    if (!reactor)
        return Acad::eInvalidInput;
    if (std::find(reactors.begin(), reactors.end(), reactor) == reactors.end())
        reactors.push_back(reactor);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor) const
{
    return std::erase(m_impl->reactors(), reactor) > 0 ? Acad::eOk : Acad::eKeyNotFound;
}
