#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ap/DocumentList.h"
#include "ed/CommandStack.h"

/// How a command ended.
struct CommandOutcome {
    std::wstring failure;               ///< why it did not run or did not end well, in French; empty when it did
    std::vector<std::wstring> leftOpen; ///< drawing objects that it opened and did not close
    std::ptrdiff_t newBuffers = 0; ///< result buffers alive now that were not before: leaked, unless kept on purpose
    std::ptrdiff_t newTexts = 0;
};

/// Told of the commands that run, those inside others as well.
class CommandWatcher {
public:
    virtual ~CommandWatcher() = default;
    /// `flags`: ACRX_CMD_...; `depth` is 1 for a command that runs in no other.
    virtual void commandStarts(const std::wstring& name, Adesk::Int32 flags, std::size_t depth) = 0;
    virtual void commandEnds(const std::wstring& name, Adesk::Int32 flags, std::size_t depth) = 0;
};

/// Runs commands by the names that users type.
/// "NAME" is a local name, "_NAME" the name common to all languages; "." keeps to the command stack, leaving out a
/// command that a module, or a user in AutoLISP, defined as the function "C:NAME"; "'" is allowed before a transparent
/// one, "-" before one that would open a dialog. Around a command the current document is locked (not for
/// ACRX_CMD_SESSION) and its changes are one step for U. An alias of the command stack counts where nothing else has
/// the name. What a command leaves behind - locks, undo marks, open objects - is put right and told, and what it throws
/// is told.
class CommandRunner {
public:
    static CommandRunner& instance();

    /// Who calls a command: a user may call a transparent one only while another runs; code may call any, and objects
    /// that the caller has open stay so.
    enum class CalledBy { user, code };

    /// Prints the failure, if there is one, as well.
    CommandOutcome run(const std::wstring& typedName, CalledBy caller = CalledBy::user);

    /// Not owned.
    void addWatcher(CommandWatcher& watcher) { m_watchers.push_back(&watcher); }
    void removeWatcher(CommandWatcher& watcher) { std::erase(m_watchers, &watcher); }

    /// Whether a name leads to a command, prefixes and all.
    static bool knows(const std::wstring& typedName) { return find(typedName).has_value(); }
    bool isRunning() const { return !m_running.empty(); }
    /// Whether code called the command that runs now, the innermost one.
    bool isCalledByCode() const { return isRunning() && m_running.back().caller == CalledBy::code; }
    /// Global names of the commands under way, as CMDNAMES shows them: "LINE'ZOOM".
    std::wstring runningNames() const;
    /// Makes the innermost command a failed one, for the first reason that it gives.
    void fail(const std::wstring& reason);

    /// Tells which objects of the drawings are open, and closes them. Asked when the outermost command ends.
    using OpenObjects = std::function<std::vector<std::wstring>()>;
    void setOpenObjects(OpenObjects openObjects) { m_openObjects = std::move(openObjects); }

private:
    /// What a name leads to.
    struct Called {
        std::wstring name; ///< global
        Adesk::Int32 flags = ACRX_CMD_MODAL;
        LoadedModule* module = nullptr;
        std::function<std::wstring()> body; ///< gives what went wrong
    };
    struct TypedName;
    static std::optional<Called> find(const std::wstring& typedName);
    static std::optional<Called> find(const TypedName& typed);
    static Called calling(const Command& command);
    static std::optional<Called> findInLisp(const std::wstring& name);
    std::optional<std::wstring> refusal(const Called& called, CalledBy caller) const;
    void runInside(const Called& called, CalledBy caller, CommandOutcome& outcome);
    void reportLeftBehind(const Called& called, const std::wstring& left) const;
    void reportLeftOpen(const Called& called, CommandOutcome& outcome) const;

    struct Running {
        std::wstring name;
        CalledBy caller;
        std::wstring failure; ///< as the command itself told it
    };
    std::vector<Running> m_running;
    std::vector<CommandWatcher*> m_watchers;
    OpenObjects m_openObjects;
};
