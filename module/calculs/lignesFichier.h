#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What is wrong in every line of a file is understood by then; one of millions of lines must not fill the memory.
inline constexpr std::size_t remarquesGardees = 1000;

/// The lines of a text file: in UTF-8 by the mark that editors put before it or by its bytes, else in Windows-1252.
/// They end at line feeds, with or without a carriage return before.
class lignesFichier {
public:
    explicit lignesFichier(std::string_view contenu);
    /// The bytes of the next line, without its end. @return whether there is one
    bool suivante(std::string_view& ligne);
    std::size_t numero() const { return m_numero; } ///< of the line given last, 1-based
    std::wstring texte(std::string_view octets) const;

private:
    std::string_view m_reste;
    std::size_t m_numero = 0;
    bool m_utf8;
};
