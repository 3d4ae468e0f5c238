#include "platform/Registry.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "platform/Paths.h"

namespace platform {

namespace {

constexpr std::wstring_view supportKey = L"HKEY_LOCAL_MACHINE\\Software\\Ostrakon\\Quarvel5";
constexpr std::wstring_view supportName = L"chemin";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

bool isKeyOrBelow(std::wstring_view candidate, std::wstring_view key)
{
    return equalNoCase(candidate.substr(0, key.size()), key) &&
           (candidate.size() == key.size() || candidate[key.size()] == L'\\');
}

Registry::Value parseValue(std::string_view text)
{
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        return wideFromUtf8(text.substr(1, text.size() - 2));
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size())
        return number;
    return wideFromUtf8(text);
}

std::string written(std::wstring_view name, const Registry::Value& value)
{
    const std::string shown = name.empty() ? "@" : utf8FromWide(name);
    if (const auto* const number = std::get_if<std::uint32_t>(&value))
        return shown + " = " + std::to_string(*number);
    return shown + " = \"" + utf8FromWide(std::get<std::wstring>(value)) + '"';
}

/// Throws for a key that its line in the file would not give back.
void checkKey(std::wstring_view key)
{
    const std::string text = utf8FromWide(key);
    if (text.empty() || text.find('\n') != std::string::npos || wideFromUtf8(text) != key)
        throw std::invalid_argument("nom de clé qui ne tient pas sur une ligne");
}

} // namespace

Registry& Registry::ofUser()
{
    static Registry registry(registryFile());
    registry.refresh();
    return registry;
}

Registry::Registry(std::filesystem::path file) : m_file(std::move(file)), m_sections(1)
{
    std::error_code unknown; // then reading it tells
    if (std::filesystem::exists(m_file, unknown) || unknown)
        load();
}

void Registry::refresh()
{
    if (const auto now = stamp(); now && now != m_stamp)
        load();
}

std::optional<Registry::Stamp> Registry::stamp() const
{
    std::error_code gone;
    const auto time = std::filesystem::last_write_time(m_file, gone);
    if (gone)
        return std::nullopt;
    const auto size = std::filesystem::file_size(m_file, gone);
    return gone ? std::nullopt : std::optional(Stamp{time, size});
}

/// A file that cannot be read leaves what there was.
void Registry::load()
{
    m_stamp = stamp(); // before: what is written meanwhile is read the next time
    std::error_code unknown;
    std::ifstream in(m_file, std::ios::binary);
    std::ostringstream content;
    const bool isEmpty = in.is_open() && std::filesystem::is_empty(m_file, unknown);
    m_problems.clear();
    if (!isEmpty && !(content << in.rdbuf())) {
        m_problems.push_back(m_file.string() + " : fichier illisible");
        return;
    }
    m_sections.assign(1, {});
    read(content.view());
}

void Registry::read(std::string_view text)
{
    while (text.starts_with(byteOrderMark)) // editors of other platforms begin UTF-8 files so, some more than once
        text.remove_prefix(byteOrderMark.size());
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const std::string_view content = trimmed(line);
        if (content.size() > 2 && content.front() == '[' && content.back() == ']')
            m_sections.push_back({wideFromUtf8(content.substr(1, content.size() - 2)), {}});
        else if (const std::optional<Line> parsed = parseLine(line);
                 parsed && !(parsed->name && m_sections.size() == 1))
            m_sections.back().lines.push_back(*parsed);
        else {
            m_sections.back().lines.push_back({std::string(line), std::nullopt, {}});
            m_problems.push_back(m_file.string() + ':' + std::to_string(number) +
                                 " : ni commentaire, ni [clé], ni nom = valeur");
        }
    }
}

/// Nothing when the line is neither blank, comment nor value.
std::optional<Registry::Line> Registry::parseLine(std::string_view text)
{
    const std::string_view content = trimmed(text);
    if (content.empty() || content.front() == ';' || content.front() == '#')
        return Line{std::string(text), std::nullopt, {}};
    const std::size_t equals = content.find('=');
    if (equals == std::string_view::npos || content.front() == '[')
        return std::nullopt;
    const std::string_view name = trimmed(content.substr(0, equals));
    return Line{std::string(text), name == "@" ? L"" : wideFromUtf8(name),
                parseValue(trimmed(content.substr(equals + 1)))};
}

bool Registry::hasKey(std::wstring_view key) const
{
    return isKeyOrBelow(supportKey, key) || std::any_of(m_sections.begin() + 1, m_sections.end(),
                                                        [&](const Section& s) { return isKeyOrBelow(s.key, key); });
}

std::optional<Registry::Value> Registry::value(std::wstring_view key, std::wstring_view name) const
{
    for (const Section& section : m_sections)
        if (equalNoCase(section.key, key))
            for (const Line& line : section.lines)
                if (line.name && equalNoCase(*line.name, name))
                    return line.value;
    if (equalNoCase(key, supportKey) && equalNoCase(name, supportName))
        return windowsPath(supportFolder());
    return std::nullopt;
}

void Registry::createKey(std::wstring_view key)
{
    checkKey(key);
    refresh();
    if (hasKey(key))
        return;
    std::vector<Section> sections = m_sections;
    sections.push_back({std::wstring(key), {}});
    save(std::move(sections));
}

void Registry::setValue(std::wstring_view key, std::wstring_view name, const Value& value)
{
    checkKey(key);
    const std::string text = written(name, value);
    const std::optional<Line> readBack = parseLine(text);
    if (text.find('\n') != std::string::npos || !readBack || readBack->name != name || readBack->value != value)
        throw std::invalid_argument("nom ou texte qui ne tient pas sur une ligne");
    refresh();
    std::vector<Section> sections = m_sections;
    auto section =
        std::find_if(sections.begin() + 1, sections.end(), [&](const Section& s) { return equalNoCase(s.key, key); });
    if (section == sections.end())
        section = sections.insert(section, {std::wstring(key), {}});
    auto line = std::find_if(section->lines.begin(), section->lines.end(),
                             [&](const Line& l) { return l.name && equalNoCase(*l.name, name); });
    if (line == section->lines.end())
        line = section->lines.insert(line, Line{});
    *line = {text, std::wstring(name), value};
    save(std::move(sections));
}

void Registry::save(std::vector<Section> sections)
{
    std::filesystem::create_directories(m_file.parent_path());
    const std::filesystem::path fresh = m_file.native() + ".nouveau";
    {
        std::ofstream out(fresh, std::ios::binary | std::ios::trunc);
        for (const Section& section : sections) {
            if (!section.key.empty())
                out << '[' << utf8FromWide(section.key) << "]\n";
            for (const Line& line : section.lines)
                out << line.text << '\n';
        }
        out.close();
        if (!out)
            throw std::system_error(errno, std::generic_category(), fresh.string());
    }
    std::filesystem::rename(fresh, m_file);
    m_sections = std::move(sections);
    m_stamp = stamp();
}

} // namespace platform
