#pragma once

#include "dbmain.h"
#include "oaidl.h"
#include "rxregsvc.h"

/// Documents: the open drawings of the session, which one is current, and their locks.

class AcApDocument;
class AcApDocumentIterator;
class AcApDocManagerReactor;

/// Constants of documents.
struct AcAp {
    /// How strongly a document is locked.
    enum DocLockMode {
        kNone = 0x00,
        kAutoWrite = 0x01,
        kNotLocked = 0x02,
        kWrite = 0x04, ///< for changes by a command or a dialog
        kProtectedAutoWrite = 0x14,
        kRead = 0x20,
        kXWrite = 0x40, ///< for changes, with no one else
    };
};

/// An open drawing.
class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);

    virtual AcDbDatabase* database() const = 0;
    /// Full path of its file; of a drawing never saved, the title.
    virtual const ACHAR* fileName() const = 0;
    /// Name of its file without folder.
    virtual const ACHAR* docTitle() const = 0;
    /// Whether it has a file.
    virtual bool isNamedDrawing() const = 0;
    /// The strongest lock held by others than the code that asks, or with `includeMyLocks` by anyone; kNotLocked when
    /// there is none. One command runs at a time here: there are no others.
    virtual AcAp::DocLockMode lockMode(bool includeMyLocks = false) const = 0;
    /// The strongest lock held by the code that asks and what it was called from.
    virtual AcAp::DocLockMode myLockMode() const = 0;
    /// Whether no command runs in it.
    virtual bool isQuiescent() const = 0;

    /// The document's automation object, with the methods "StartUndoMark" and "EndUndoMark" (no arguments): changes
    /// between the two are one step for U. They nest. With `addRef` the caller releases it.
    virtual IDispatch* GetIDispatch(bool addRef) = 0;
};

/// The open documents.
class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);

    /// The document that calls refer to; null when none is open.
    virtual AcApDocument* curDocument() const = 0;
    /// The document the user has in front.
    virtual AcApDocument* mdiActiveDocument() const = 0;
    /// Makes a document the current one, locked as asked; with `activate` it comes to the front as well.
    /// Its database becomes the working one. eNoDocument when it is not open.
    virtual Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kNone,
                                             bool activate = false) = 0;
    virtual Acad::ErrorStatus activateDocument(AcApDocument* document) = 0;
    /// The document of a database, null when it has none.
    virtual AcApDocument* document(const AcDbDatabase* database) const = 0;
    virtual int documentCount() const = 0;
    /// Whether no document's command is running.
    virtual bool isApplicationContext() const = 0;

    /// Locks nest: each lock asks for one unlock. Modes: kWrite, kRead, kXWrite, kAutoWrite; others give eInvalidInput.
    virtual Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                           const ACHAR* globalCmdName = nullptr, const ACHAR* localCmdName = nullptr,
                                           bool prompt = true) = 0;
    /// Ends the latest lock; eLockViolation when the document is not locked.
    virtual Acad::ErrorStatus unlockDocument(AcApDocument* document) = 0;

    /// Documents in the order of opening, for the caller to delete.
    virtual AcApDocumentIterator* newAcApDocumentIterator() = 0;

    /// Not owned.
    virtual void addReactor(AcApDocManagerReactor* reactor) = 0;
    virtual void removeReactor(AcApDocManagerReactor* reactor) = 0;
};

class AcApDocumentIterator : public AcRxObject {
public:
    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcApDocument* document() const = 0;
};

/// Told of what happens to documents. A document opens with documentCreated, documentBecameCurrent,
/// documentActivated, and only then do modules receive kLoadDwgMsg for it; it goes with kUnloadDwgMsg,
/// documentToBeDestroyed, documentDestroyed.
class AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);
    virtual void documentCreated(AcApDocument*) {}
    virtual void documentToBeDestroyed(AcApDocument*) {}
    virtual void documentDestroyed(const ACHAR* /*fileName*/) {}
    /// Null when the last document has gone.
    virtual void documentBecameCurrent(AcApDocument*) {}
    virtual void documentActivated(AcApDocument*) {}
    virtual void documentLockModeChanged(AcApDocument*, AcAp::DocLockMode /*myPrevious*/,
                                         AcAp::DocLockMode /*myCurrent*/, AcAp::DocLockMode /*current*/,
                                         const ACHAR* /*globalCmdName*/)
    {
    }
};

AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()

inline AcApDocument* curDoc()
{
    return acDocManagerPtr()->curDocument();
}
