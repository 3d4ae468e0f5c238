#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dbid.h"
#include "gepnt3d.h"

/// A word that a prompt accepts. What is in capitals suffices as an abbreviation: "Ligne" takes "l" and "LIG".
struct InputKeyword {
    std::wstring local;  ///< in the user's language
    std::wstring global; ///< typed with a leading "_", in any language
};

/// What the code that asks wants to be given.
struct InputRequest {
    enum class Kind {
        command, ///< nothing runs: a name, an AutoLISP expression
        point,
        corner, ///< of a box whose first corner is `base`
        distance,
        angle,
        real,
        integer,
        string,
        keyword,
        entity,    ///< one entity, picked at a point
        selection, ///< entities, windows, options of selecting
        drag,      ///< a jig: the movements of the cursor count too
    };
    Kind kind = Kind::command;
    std::wstring prompt; ///< as it is shown, on one line, without the line break before it
    std::vector<InputKeyword> keywords;
    std::optional<AcGePoint3d> base; ///< a line or a box is stretched from here to the cursor; world coordinates
    bool takesBlanks = false;        ///< text in which a blank does not end the input
    bool takesNone = true;           ///< Enter alone is an answer
    bool takesAnyText = false;       ///< what makes no sense otherwise is an answer
    bool dashed = false;             ///< how the line or the box is drawn: a crossing box is
    int snapModes = 0;               ///< bits of OSMODE that hold for this point only; 0 for the user's own
};

/// What a person in the window, or a line of a script, gives to it.
struct InputAnswer {
    enum class Kind {
        text,    ///< typed; empty for Enter alone. The one that asks reads it, and asks again when it makes no sense
        point,   ///< picked in the window, snapped already; world coordinates
        objects, ///< entities, for Kind::selection and Kind::entity; `point` is where the one entity was picked
        moved,   ///< where the cursor is now: for Kind::drag only
        cancel,  ///< Escape
        ended,   ///< this source has nothing for the request: the source below is asked
    };
    Kind kind = Kind::cancel;
    std::wstring text;
    AcGePoint3d point;
    std::vector<AcDbObjectId> objects;
    /// Where the cursor was when a text was typed, if there is one: a length typed alone is measured towards it.
    std::optional<AcGePoint3d> cursor;
    bool withShift = false; ///< held while picking: for Kind::selection, see PickEffect
};

/// Where answers come from: a window, the lines of a script, the arguments of (command ...). They stand on each other
/// (EditorInput::Source); the same requests go to all of them.
class InputSource {
public:
    virtual ~InputSource() = default;
    /// Waits for the answer. The source may show the prompt meanwhile, in its own way; once it has answered, the prompt
    /// and the answer are printed on the Console by EditorInput, as a command line's history shows them.
    virtual InputAnswer answer(const InputRequest& request) = 0;
    /// An answer did not do: tells why, in French, before the request comes again. EditorInput has printed the reason.
    /// A script fails here.
    virtual void refused(const InputRequest& request, const std::wstring& reason) = 0;
    /// Whether prompts and answers are printed.
    virtual bool isEchoed() const { return true; }
};
