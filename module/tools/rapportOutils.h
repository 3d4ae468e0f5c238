#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "reports/htmlDocument.h"
#include "reports/htmlTable.h"

/// The reports of the drawing tools: a title, paragraphs and tables, in the look of the traverse reports.
class rapportOutils {
public:
    explicit rapportOutils(std::wstring_view titre);

    void sousTitre(std::wstring_view texte);
    void paragraphe(std::wstring_view texte);
    /// A table with its head line, to be filled and added.
    htmlTable tableau(std::initializer_list<std::wstring_view> titres) const;
    void ajouter(const htmlTable& table) { m_document.append(table.render()); }
    htmlDocument document() const { return m_document; }

    /// A cell, on the left.
    static void texte(htmlTable& table, std::wstring_view contenu);
    /// With as many decimals, on the right; empty when it is `inconnu`.
    static void nombre(htmlTable& table, double valeur, int decimales = 3);
    static void nombreEcrit(htmlTable& table, std::wstring_view contenu);

private:
    htmlDocument m_document;
};
