#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/lecteurPoints.h"

// Points in columns, as spreadsheets and other programs write them: one point a line, cells between separators.
// Texts in UTF-8, in UTF-16, and in Windows-1252 where a line cannot be UTF-8. The decimal sign is a full stop or a
// comma, in a cell of its own or between double quotes; a quote within quotes is doubled.

/// What a column holds.
enum class colonne { ignoree, nom, x, y, z, code, observation };

struct formatColonnes {
    char separateur = ';';         ///< ';', ',', '\t', or ' ' for blanks and tabs in any number
    bool enTete = false;           ///< the first line with anything on it names the columns
    std::vector<colonne> colonnes; ///< from the left; cells beyond them are left alone

    bool operator==(const formatColonnes&) const = default;
};

/// Whether bytes that begin so are a text at all.
bool estTexteEnColonnes(std::string_view debut);

/// The most likely format of a text that begins so: the separator that gives most numbers; columns by the names of the
/// first line, and otherwise by their number: name, X, Y, Z, code, observation (X, Y or X, Y, Z where the first column
/// has decimals or there are but two).
formatColonnes devinerColonnes(std::string_view debut);

/// The cells of the first lines of a text that begins so, for a user to choose columns by.
std::vector<std::vector<std::wstring>> apercuColonnes(std::string_view debut, char separateur, std::size_t lignes);

/// Lines without X or Y in figures, or with a Z that is no number, give no point. An empty Z is unknown, and so
/// is ".", which lists of points write for it; an empty code is 1; a code that is no whole number is kept as
/// observation, and told.
class lecteurColonnes final : public lecteurPoints {
public:
    /// Guesses the format of each file.
    lecteurColonnes() = default;
    explicit lecteurColonnes(formatColonnes format) : m_format(std::move(format)) {}

    std::wstring_view nom() const override { return L"Colonnes séparées"; }
    std::wstring_view filtre() const override { return L"*.csv;*.tsv;*.asc;*.pts;*.dat"; }
    bool reconnait(std::wstring_view, std::string_view) const override { return true; }
    void lire(sourceOctets& source, pointsLus& lus) const override;

private:
    std::optional<formatColonnes> m_format;
};
