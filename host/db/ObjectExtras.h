#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dxf/DxfForm.h"

#include "dbmain.h"

/// Extended data of one application: a 1001 item and its data, or null when they were taken away. Shared by the copies
/// kept for undo.
struct ApplicationData {
    std::wstring application; ///< folded name
    std::shared_ptr<const resbuf> items;
};

/// What few objects have, kept apart so that the others stay small.
/// An empty optional: as in the object's bytes in the file, or none for a new object.
struct AcDbObjectExtras {
    /// Extended data set by the program; those of other applications stand as in the bytes.
    std::vector<ApplicationData> xdata;
    std::optional<std::uint64_t> extensionDictionary; ///< handle, 0 for none
    std::optional<std::vector<std::uint64_t>> persistentReactors;
    std::vector<AcDbStub*> addedSubentities; ///< after those of the file
    AcDbStub* addedSequenceEnd = nullptr;
    std::vector<std::unique_ptr<AcDbEntity>> pendingSubentities; ///< not copied
    std::vector<AcDbObjectReactor*> reactors;                    ///< transient; not owned

    /// The state that undo keeps: transient reactors stay with the object that is in use.
    std::unique_ptr<AcDbObjectExtras> copyForUndo() const
    {
        auto twin = std::make_unique<AcDbObjectExtras>();
        twin->xdata = xdata;
        twin->extensionDictionary = extensionDictionary;
        twin->persistentReactors = persistentReactors;
        twin->addedSubentities = addedSubentities;
        twin->addedSequenceEnd = addedSequenceEnd;
        return twin;
    }
};
