#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "exchange/sourceOctets.h"

/// The lines of a text, one after the other, in memory that does not grow with the file nor with its lines.
/// A line ends at a line feed, with or without a carriage return before it; its end is not part of it.
class lecteurLignes {
public:
    /// @param longueur of the longest piece: a longer line comes in several
    /// @param fin what ends a line in place of a line feed
    lecteurLignes(sourceOctets& source, std::size_t longueur, char fin = '\n');

    /// Goes on to the next line, or the next piece of a long one. @return false at the end of the source
    bool suivante();
    /// The line or piece. Valid until the next one.
    std::string_view ligne() const { return m_ligne; }
    /// Of the line, 1-based; its pieces share it.
    std::size_t numero() const { return m_numero; }
    /// Whether the line has more to come.
    bool coupee() const { return m_coupee; }
    /// Leaves what is to come of a long line.
    void passerReste();

private:
    void remplir();

    sourceOctets& m_source;
    std::size_t m_longueur;
    char m_finDeLigne;
    std::vector<char> m_tampon;
    std::size_t m_debut = 0, m_fin = 0; // of what is not given yet, in m_tampon
    bool m_epuisee = false, m_coupee = false;
    std::size_t m_numero = 0;
    std::string_view m_ligne;
};

/// What ends the lines of a text that begins so: a carriage return where it has no line feed, as old programs write.
char finDeLigne(std::string_view debut);
