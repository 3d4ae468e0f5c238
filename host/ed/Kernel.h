#pragma once

#include "ap/UndoMarks.h"
#include "ed/DrawingHeader.h"
#include "ed/input/PickFirstRule.h"

/// Ties the parts of the kernel together for as long as it lives: documents and commands to the history of drawings,
/// the end of commands to the objects they left open, system variables to the headers of drawings. A program, or a test
/// of the whole kernel, makes one first.
class Kernel : private UndoMarks {
public:
    Kernel();
    ~Kernel() override;
    Kernel(const Kernel&) = delete;
    Kernel& operator=(const Kernel&) = delete;

private:
    void documentOpened(AcDbDatabase& database) override;
    void startMark(AcDbDatabase& database) override;
    void endMark(AcDbDatabase& database) override;

    DrawingHeader m_header;
    PickFirstRule m_pickFirst;
};
