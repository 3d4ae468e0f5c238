#include "ui/window/WindowSettings.h"

#include <exception>

#include "platform/Registry.h"
#include "rx/Console.h"

namespace windowSettings {

namespace {

constexpr const wchar_t* key = L"HKEY_CURRENT_USER\\Software\\Vela\\Fenetre";
constexpr const wchar_t* recentName = L"recents";
constexpr int mostRecent = 9;
// Paths are absolute and hold no empty name.
const QString betweenPaths = QStringLiteral("//");

void set(const wchar_t* name, const platform::Registry::Value& value)
{
    static bool told = false;
    auto& registry = platform::Registry::ofUser();
    if (registry.value(key, name) == value || told)
        return;
    try {
        registry.setValue(key, name, value);
    } catch (const std::exception& failure) {
        told = true;
        Console::instance().print(L"\nLes réglages de la fenêtre ne peuvent être gardés : " +
                                  QString::fromUtf8(failure.what()).toStdWString());
    }
}

void setRecentFiles(const QStringList& paths)
{
    setText(recentName, paths.mid(0, mostRecent).join(betweenPaths));
}

} // namespace

QString text(const wchar_t* name, const QString& otherwise)
{
    const auto value = platform::Registry::ofUser().value(key, name);
    const auto* const found = value ? std::get_if<std::wstring>(&*value) : nullptr;
    return found ? QString::fromStdWString(*found) : otherwise;
}

void setText(const wchar_t* name, const QString& value)
{
    set(name, value.toStdWString());
}

int number(const wchar_t* name, int otherwise)
{
    const auto value = platform::Registry::ofUser().value(key, name);
    const auto* const found = value ? std::get_if<std::uint32_t>(&*value) : nullptr;
    return found ? static_cast<int>(*found) : otherwise;
}

QByteArray bytes(const wchar_t* name)
{
    return QByteArray::fromBase64(text(name).toLatin1());
}

void setBytes(const wchar_t* name, const QByteArray& value)
{
    setText(name, QString::fromLatin1(value.toBase64()));
}

QStringList recentFiles()
{
    return text(recentName).split(betweenPaths, Qt::SkipEmptyParts);
}

void addRecentFile(const QString& path)
{
    QStringList paths = recentFiles();
    paths.removeAll(path);
    paths.prepend(path);
    setRecentFiles(paths);
}

void forgetRecentFile(const QString& path)
{
    QStringList paths = recentFiles();
    if (paths.removeAll(path) > 0)
        setRecentFiles(paths);
}

} // namespace windowSettings
