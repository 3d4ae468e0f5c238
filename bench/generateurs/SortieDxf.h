#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>

enum class FormeDxf { texte, binaire };

/// A handle, or a reference to one; 0 refers to nothing.
enum class Poignee : std::uint64_t { aucune = 0 };

/// Writes tags to a DXF file, one after the other, in either form of the format.
/// Texts are given in UTF-8 and written so, or in Windows-1252 for versions before 2007 (Latin-1 letters only there).
class SortieDxf {
public:
    /// @throws std::runtime_error when the file cannot be created
    SortieDxf(const std::filesystem::path& fichier, FormeDxf forme, bool utf8);

    void tag(int code, std::string_view texte);
    void tag(int code, double reel);
    void tag(int code, int entier); ///< binary: as wide as the group code says
    void tag(int code, Poignee poignee);
    void tag(int code, std::span<const unsigned char> octets); ///< at most 127 bytes

    /// Code, value, code, value...
    template <class Valeur, class... Reste>
    void tags(int code, const Valeur& valeur, const Reste&... reste)
    {
        tag(code, valeur);
        if constexpr (sizeof...(reste) > 0)
            tags(reste...);
    }

    /// Writes what is still held back. @throws std::runtime_error when the disk refused a byte
    void fermer();

private:
    void code(int code);
    void ligne(std::string_view valeur);
    void octetsDe(std::uint64_t valeur, int nombre);
    void vider(std::size_t auDela);

    std::ofstream m_fichier;
    std::string m_attente;
    FormeDxf m_forme;
    bool m_utf8;
};
