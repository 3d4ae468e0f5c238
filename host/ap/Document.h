#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "acdocman.h"

class DocumentAutomation;

/// An open drawing: its database, its file, its locks, the marks of its history.
class Document : public AcApDocument {
public:
    /// `path` is empty for a drawing that has no file yet.
    Document(std::unique_ptr<AcDbDatabase> database, std::wstring path, std::wstring title);
    ~Document() override;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    AcDbDatabase* database() const override { return m_database.get(); }
    const ACHAR* fileName() const override { return m_path.empty() ? m_title.c_str() : m_path.c_str(); }
    const ACHAR* docTitle() const override { return m_title.c_str(); }
    bool isNamedDrawing() const override { return !m_path.empty(); }
    AcAp::DocLockMode lockMode(bool includeMyLocks) const override;
    AcAp::DocLockMode myLockMode() const override;
    bool isQuiescent() const override { return m_commands == 0; }
    IDispatch* GetIDispatch(bool addRef) override;

    /// Folder of its file, with the separator at its end; of a drawing without a file, the current folder.
    std::wstring folder() const;
    void setFile(const std::wstring& path);
    /// It has no file of its own: a copy of a drawing, to be saved elsewhere.
    void setUntitled(const std::wstring& title);

    void pushLock(AcAp::DocLockMode mode) { m_locks.push_back(mode); }
    /// False when there is no lock.
    bool popLock();
    std::size_t lockCount() const { return m_locks.size(); }

    void startUndoMark();
    /// False when no mark is open.
    bool endUndoMark();
    int undoMarks() const { return m_undoMarks; }

    void commandStarts() { ++m_commands; }
    void commandEnds() { --m_commands; }

    /// Where DocumentData keeps what belongs to this document; `key` is the DocumentData.
    std::shared_ptr<void>& data(const void* key) { return m_data[key]; }

private:
    std::unique_ptr<AcDbDatabase> m_database;
    std::wstring m_path;
    std::wstring m_title;
    std::vector<AcAp::DocLockMode> m_locks;
    int m_undoMarks = 0;
    int m_commands = 0;
    DocumentAutomation* m_automation; // counted
    std::map<const void*, std::shared_ptr<void>> m_data;
};
