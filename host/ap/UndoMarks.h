#pragma once

class AcDbDatabase;

/// What documents and commands ask of the history of a drawing.
class UndoMarks {
public:
    virtual ~UndoMarks() = default;
    /// The database belongs to a document from now on: its changes can be taken back.
    virtual void documentOpened(AcDbDatabase& database) = 0;
    /// Marks nest: the changes between the outermost two are one step.
    virtual void startMark(AcDbDatabase& database) = 0;
    virtual void endMark(AcDbDatabase& database) = 0;
};

/// Until one is set (not owned; null takes it away), drawings have no history.
void setUndoMarks(UndoMarks* marks);
UndoMarks& undoMarks();
