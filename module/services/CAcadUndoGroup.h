#pragma once

struct IDispatch;

class Uncopyable {
public:
    Uncopyable(const Uncopyable&) = delete;
    Uncopyable& operator=(const Uncopyable&) = delete;

protected:
    Uncopyable() = default;
    ~Uncopyable() = default;
};

/// Makes one undo step of the changes made during its life. A command that changes many entities holds one for its
/// whole run.
/// The group belongs to the document of the working drawing; without one, or without its automation object, nothing is
/// grouped.
class CAcadUndoGroup : Uncopyable {
public:
    CAcadUndoGroup();
    ~CAcadUndoGroup();

private:
    IDispatch* document = nullptr;
};
