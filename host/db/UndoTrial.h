#pragma once

#include "db/UndoRecorder.h"

/// Changes made while it lives are taken back at its end, and the history of the drawing knows nothing of them. No
/// object may be open at either end.
class UndoTrial {
public:
    explicit UndoTrial(UndoRecorder& recorder);
    ~UndoTrial();
    UndoTrial(const UndoTrial&) = delete;
    UndoTrial& operator=(const UndoTrial&) = delete;

private:
    UndoRecorder& m_recorder;
    UndoRecorder::History m_before;
};
