#include "FakeDatabase.h"

namespace fakeDatabase {
std::vector<std::wstring> log;
std::wstring nextFailure;
int alive = 0;
} // namespace fakeDatabase

class AcDbDatabaseImpl {
public:
    std::wstring fileName;
    std::wstring lastError;

    Acad::ErrorStatus answer(const wchar_t* verb, const ACHAR* path)
    {
        fakeDatabase::log.push_back(verb + std::wstring(L" ") + path);
        lastError = std::exchange(fakeDatabase::nextFailure, L"");
        return lastError.empty() ? Acad::eOk : Acad::eFileAccessErr;
    }
};

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)

AcDbDatabase::AcDbDatabase(bool, bool) : m_impl(std::make_unique<AcDbDatabaseImpl>())
{
    ++fakeDatabase::alive;
}

AcDbDatabase::~AcDbDatabase()
{
    --fakeDatabase::alive;
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* fileName)
{
    m_impl->fileName = fileName;
    return m_impl->answer(L"read", fileName);
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName)
{
    const Acad::ErrorStatus status = m_impl->answer(L"write", fileName);
    if (status == Acad::eOk)
        m_impl->fileName = fileName;
    return status;
}

const ACHAR* AcDbDatabase::lastError() const
{
    return m_impl->lastError.c_str();
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& fileName) const
{
    fileName = m_impl->fileName.c_str();
    return Acad::eOk;
}
