#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <QDateTime>
#include <QString>
#include <vector>

class QLockFile;

/// A drawing that a session left behind when it ended without closing it.
struct LostDrawing {
    std::filesystem::path copy; ///< what was kept of it
    QString file;               ///< its own file; empty when it had none
    QString title;
    QDateTime when; ///< it was kept
};

/// Where a session keeps copies of the drawings that are not saved yet: a folder of its own below the user's data, with
/// a lock that does not hold any more once the session's process has ended, however it ended.
class RecoveryFolder {
public:
    /// ~/.local/share/vela/recuperation, or below XDG_DATA_HOME.
    static std::filesystem::path place();

    /// Makes the session's folder. @throws std::system_error when it cannot be made or locked.
    explicit RecoveryFolder(const std::filesystem::path& place = RecoveryFolder::place());
    /// The session ends well: nothing is to be recovered.
    ~RecoveryFolder();
    RecoveryFolder(const RecoveryFolder&) = delete;
    RecoveryFolder& operator=(const RecoveryFolder&) = delete;

    /// Where the copy of the drawing with that number goes.
    std::filesystem::path copyOf(int number) const;
    /// Writes down what a copy is of; before the copy, which means nothing without. @return why it failed; nothing when
    /// it did not.
    std::optional<QString> describe(int number, const QString& file, const QString& title) const;
    void forget(int number) const;

    /// What sessions that have ended left behind; folders without anything to recover are removed.
    static std::vector<LostDrawing> lost(const std::filesystem::path& place = RecoveryFolder::place());
    /// Removes a copy, and its folder after the last one.
    static void discard(const LostDrawing& drawing);

private:
    std::filesystem::path m_folder;
    std::unique_ptr<QLockFile> m_lock;
};
