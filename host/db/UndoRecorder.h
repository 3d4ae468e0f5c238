#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "db/Record.h"

class AcDbDatabaseImpl;
class AcDbObject;

/// The changes of a drawing, in groups that U and REDO take back and make again.
/// A group holds, for each object it touched, the object as it stood before (once), or that it was made.
class UndoRecorder {
public:
    explicit UndoRecorder(AcDbDatabaseImpl& database);
    ~UndoRecorder();

    /// Off until a document asks for it: a database used by a program alone keeps no history.
    void setRecording(bool recording) { m_recording = recording; }
    bool isRecording() const { return m_recording; }
    /// Whether a group is being taken back or made again now.
    bool isReplaying() const { return m_replaying; }

    /// Marks nest: the outermost pair makes one group, called `name`.
    void startMark(const std::wstring& name = {});
    void endMark();

    /// To be called before an object changes. Keeps its state unless the group has it already.
    void beforeChange(AcDbObject& object);
    void created(AcDbStub* stub);
    void beforeHeaderChange(const std::string& name);

    /// Takes the last group back, or makes the last one taken back again; false when there is none.
    /// No object may be open.
    bool undo();
    bool redo();
    std::size_t undoable() const { return m_history.done.size(); }
    std::size_t redoable() const { return m_history.undone.size(); }
    /// Of the group that undo, or redo, would take; empty when there is none.
    std::wstring undoName() const { return m_history.done.empty() ? std::wstring() : m_history.done.back().name; }
    std::wstring redoName() const { return m_history.undone.empty() ? std::wstring() : m_history.undone.back().name; }
    void clear();

    /// Groups made from now on become one at endSet. Taking back what was there before ends the set without more.
    void beginSet();
    /// False when no set was begun.
    bool endSet(const std::wstring& name);
    bool isSetBegun() const { return m_history.setStart.has_value(); }

    /// A place in the history to come back to. It goes when a group before it is taken back.
    void placeBookmark();
    /// Whether the last bookmark stands where the history is now.
    bool isAtBookmark() const
    {
        return !m_history.bookmarks.empty() && m_history.bookmarks.back() == m_history.done.size();
    }
    bool hasBookmark() const { return !m_history.bookmarks.empty(); }
    void removeBookmark() { m_history.bookmarks.pop_back(); }

    /// A number for the state that the drawing is in: it changes with each change, and is back when that is taken back.
    std::uint64_t state() const { return m_history.done.empty() ? 0 : m_history.done.back().revision; }

private:
    friend class UndoTrial;

    struct Step {
        AcDbStub* stub = nullptr;          // null for a header variable
        std::unique_ptr<AcDbObject> other; // the object on the other side of the step; null when it was made
        bool made = false;                 // the step is the making of the object
        std::uint16_t flags = 0;           // on the other side
        std::string variable, tags;        // of a header variable, on the other side
    };
    struct Group {
        std::vector<Step> steps;
        std::set<std::string> variables; // those with a step
        std::wstring name;
        std::uint64_t revision = 0; // of the drawing after its last change
    };

    Group* current();
    void forgetPassed();
    void swapSides(Group& group, bool undoing);
    void swapSides(Step& step);
    /// Puts the other object in the place of the one in use, which keeps no transient reactor.
    static void swapObjects(DxfRecord& record, std::unique_ptr<AcDbObject>& other);

    /// What was done, and how far the next group is.
    struct History {
        int depth = 0;
        bool open = false; // whether the last group done still takes steps
        std::uint32_t groupNumber = 0;
        std::uint64_t revision = 0;
        std::wstring name;                   // of the next group
        std::optional<std::size_t> setStart; // how many groups were done before the set
        std::vector<std::size_t> bookmarks;  // the same for each bookmark
        std::vector<Group> done, undone;
    };

    AcDbDatabaseImpl& m_database;
    bool m_recording = false;
    bool m_replaying = false;
    History m_history;
};
