#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// A table of text for a terminal: columns as wide as their widest cell, two spaces between them.
class tableTexte {
public:
    enum class cote { gauche, droite };

    /// @param cotes where the cells of each column stand; there are as many columns.
    explicit tableTexte(std::vector<cote> cotes) : colonnes(std::move(cotes)) {}

    /// A cell for each column, UTF-8.
    void ajouter(std::vector<std::string> ligne) { lignes.push_back(std::move(ligne)); }
    bool vide() const { return lignes.empty(); }
    /// Each line begins with `marge`; no line ends with a space.
    void ecrire(std::ostream& flux, const std::string& marge) const;

private:
    std::vector<cote> colonnes;
    std::vector<std::vector<std::string>> lignes;
};
