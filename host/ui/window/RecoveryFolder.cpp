#include "ui/window/RecoveryFolder.h"

#include <algorithm>
#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr const char* lockName = "verrou";

fs::path descriptionOf(fs::path copy)
{
    return copy.replace_extension(".json");
}

QString asText(const fs::path& path)
{
    return QString::fromStdString(path.string());
}

/// The lock of a session's folder, held; null when another process that lives holds it, or it cannot be made.
std::unique_ptr<QLockFile> takeLock(const fs::path& folder)
{
    auto lock = std::make_unique<QLockFile>(asText(folder / lockName));
    lock->setStaleLockTime(0); // a session may last for days
    return lock->tryLock() ? std::move(lock) : nullptr;
}

/// A lock cannot be let go once its file is gone. What cannot be removed is looked at again at the next start.
void removeFolder(const fs::path& folder, QLockFile& lock)
{
    lock.unlock();
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

/// Two sessions may start within one second, and process numbers come again: the first name that is free.
fs::path makeFolder(const fs::path& place)
{
    fs::create_directories(place);
    const std::string name = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss-")).toStdString() +
                             std::to_string(QCoreApplication::applicationPid());
    for (int attempt = 0;; ++attempt) {
        const fs::path folder = place / (attempt == 0 ? name : name + "-" + std::to_string(attempt));
        if (fs::create_directory(folder))
            return folder;
    }
}

std::optional<LostDrawing> readDescription(const fs::path& description)
{
    QFile file(asText(description));
    fs::path copy = description;
    copy.replace_extension(".dxf");
    if (!fs::exists(copy) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonObject told = QJsonDocument::fromJson(file.readAll()).object();
    return LostDrawing{copy, told[QStringLiteral("fichier")].toString(), told[QStringLiteral("titre")].toString(),
                       QDateTime::fromString(told[QStringLiteral("heure")].toString(), Qt::ISODate)};
}

std::vector<LostDrawing> drawingsIn(const fs::path& folder)
{
    std::vector<LostDrawing> found;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".json")
            if (auto drawing = readDescription(entry.path()))
                found.push_back(std::move(*drawing));
    return found;
}

} // namespace

fs::path RecoveryFolder::place()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return fs::path(data.toStdString()) / "vela" / "recuperation";
}

RecoveryFolder::RecoveryFolder(const fs::path& place) : m_folder(makeFolder(place)), m_lock(takeLock(m_folder))
{
    if (!m_lock)
        throw std::system_error(std::make_error_code(std::errc::no_lock_available), (m_folder / lockName).string());
}

RecoveryFolder::~RecoveryFolder()
{
    removeFolder(m_folder, *m_lock);
}

fs::path RecoveryFolder::copyOf(int number) const
{
    return m_folder / (std::to_string(number) + ".dxf");
}

std::optional<QString> RecoveryFolder::describe(int number, const QString& file, const QString& title) const
{
    const QJsonObject told{{QStringLiteral("fichier"), file},
                           {QStringLiteral("titre"), title},
                           {QStringLiteral("heure"), QDateTime::currentDateTime().toString(Qt::ISODate)}};
    QSaveFile description(asText(descriptionOf(copyOf(number))));
    if (!description.open(QIODevice::WriteOnly) || description.write(QJsonDocument(told).toJson()) < 0 ||
        !description.commit())
        return description.errorString();
    return std::nullopt;
}

void RecoveryFolder::forget(int number) const
{
    std::error_code ignored; // it may never have been kept
    fs::remove(descriptionOf(copyOf(number)), ignored);
    fs::remove(copyOf(number), ignored);
}

std::vector<LostDrawing> RecoveryFolder::lost(const fs::path& place)
{
    std::vector<LostDrawing> found;
    if (!fs::is_directory(place))
        return found;
    for (const fs::directory_entry& folder : fs::directory_iterator(place)) {
        const auto lock = folder.is_directory() ? takeLock(folder.path()) : nullptr;
        if (!lock)
            continue; // of a session that lives
        auto drawings = drawingsIn(folder.path());
        if (drawings.empty())
            removeFolder(folder.path(), *lock);
        found.insert(found.end(), std::make_move_iterator(drawings.begin()), std::make_move_iterator(drawings.end()));
    }
    std::ranges::sort(found, {}, [](const LostDrawing& drawing) { return drawing.copy; });
    return found;
}

void RecoveryFolder::discard(const LostDrawing& drawing)
{
    std::error_code ignored;
    fs::remove(descriptionOf(drawing.copy), ignored);
    fs::remove(drawing.copy, ignored);
    if (drawingsIn(drawing.copy.parent_path()).empty())
        fs::remove_all(drawing.copy.parent_path(), ignored);
}
