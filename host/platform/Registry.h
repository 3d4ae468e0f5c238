#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace platform {

/// Named values under keys such as "HKEY_LOCAL_MACHINE\Software\Maker\Product", kept in a UTF-8 text file:
///
///     ; comment
///     [HKEY_LOCAL_MACHINE\Software\Maker\Product]
///     chemin = "C:\Dossier"      a text, kept to the letter between the outer quotes; bare text is taken too
///     nombre = 12                a whole number below 2^32
///     @ = "..."                  the key's own value, whose name is empty
///
/// Keys and names are found whatever their letter case; of two of one name the first counts. Lines that are not
/// understood are reported and kept when the file is written again. A file that does not exist holds no values.
/// Several programs may share one file: what the others wrote is read before anything is written.
/// Beneath the file lies one value of our own, the installed support folder: the text "chemin" of
/// HKEY_LOCAL_MACHINE\Software\Ostrakon\Quarvel5.
class Registry {
public:
    using Value = std::variant<std::wstring, std::uint32_t>;

    /// The user's registry: the file that registryFile() names, read on first use and when it has changed since.
    static Registry& ofUser();

    explicit Registry(std::filesystem::path file);

    /// Reads the file again when another program has written it.
    void refresh();

    /// What was wrong with the file, for the user: file, line, reason.
    const std::vector<std::string>& problems() const { return m_problems; }

    /// Whether the key, or one below it, exists.
    bool hasKey(std::wstring_view key) const;
    std::optional<Value> value(std::wstring_view key, std::wstring_view name) const;

    /// Both save the file (whole, or not at all) before they return.
    /// @throws std::system_error when it cannot be written, std::invalid_argument when a name or a text cannot stand
    /// on one line; the registry is then as before.
    void createKey(std::wstring_view key);
    void setValue(std::wstring_view key, std::wstring_view name, const Value& value);

private:
    struct Line {
        std::string text; // as in the file
        std::optional<std::wstring> name;
        Value value;
    };
    struct Section {
        std::wstring key; // empty for what stands before the first key
        std::vector<Line> lines;
    };

    /// Tells one writing of the file from the next.
    struct Stamp {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;
        bool operator==(const Stamp&) const = default;
    };
    std::optional<Stamp> stamp() const;
    void load();
    void read(std::string_view text);
    static std::optional<Line> parseLine(std::string_view text);
    void save(std::vector<Section> sections);

    std::filesystem::path m_file;
    std::optional<Stamp> m_stamp; // of what was read or written last
    std::vector<Section> m_sections;
    std::vector<std::string> m_problems;
};

} // namespace platform
