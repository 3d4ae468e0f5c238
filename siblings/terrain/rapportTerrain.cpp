#include "rapportTerrain.h"

#include <cmath>

#include "reports/htmlStyle.h"
#include "reports/htmlTable.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/nombreFixe.h"

namespace {

constexpr char celluleNombre[] = "class=nombre";

htmlDocument nouveau(const std::wstring& titre)
{
    htmlDocument document;
    document.addHeadLine(htmlHeadWindows1252);
    document.addHeadLine("<title>" + htmlEscaped(versAnsi(titre)) + "</title>\n");
    htmlStyle style;
    style.setFontFamily("Arial");
    style.setGenericFamily("sans-serif");
    style.setFontSize({10, htmlSize::pt});
    document.addStyle("P, TD, TH", style.text());
    style.setFontSize({18, htmlSize::pt});
    document.addStyle(".grand", style.text());
    htmlStyle nombre;
    nombre.setTextAlign(htmlStyle::right);
    document.addStyle(".nombre", nombre.text());
    document.append(htmlText(htmlEscaped(versAnsi(titre)), "class=grand").render());
    return document;
}

void ajouter(htmlDocument& document, const std::wstring& texte)
{
    document.append(htmlText(htmlEscaped(versAnsi(texte))).render());
}

htmlTable tableau()
{
    htmlTable table;
    table.setBorder(1);
    table.setCellPadding(4);
    table.setCellSpacing(0);
    return table;
}

void entetes(htmlTable& table, std::initializer_list<const wchar_t*> titres)
{
    table.beginRow();
    for (const wchar_t* const titre : titres)
        table.addCell("<b>" + versAnsi(titre) + "</b>");
    table.endRow();
}

std::wstring place(const lieuSol& p)
{
    return depuisAnsi(nombreFixe(p.x, 3) + ", " + nombreFixe(p.y, 3));
}

void nommerModele(htmlDocument& document, const std::wstring& modele)
{
    ajouter(document, L"Mod\u00e8le : " + modele);
}

} // namespace

htmlDocument rapportProfil(const std::wstring& modele, const lieuSol& de, const lieuSol& vers,
                           const parcoursTerrain::polylignes& profil)
{
    htmlDocument document = nouveau(L"Profil en long");
    nommerModele(document, modele);
    ajouter(document, L"De " + place(de) + L" \u00e0 " + place(vers));
    htmlTable table = tableau();
    entetes(table, {L"Distance", L"X", L"Y", L"Altitude", L"Pente (%)"});
    for (std::size_t k = 0; k < profil.size(); ++k) {
        if (k > 0) {
            table.beginRow();
            table.addCell("hors du mod\xE8le", "colspan=5");
            table.endRow();
        }
        for (std::size_t i = 0; i < profil[k].size(); ++i) {
            const sommetSol& s = profil[k][i];
            table.beginRow();
            table.addCell(std::hypot(s.x - de.x, s.y - de.y), 3, celluleNombre);
            table.addCell(s.x, 3, celluleNombre);
            table.addCell(s.y, 3, celluleNombre);
            table.addCell(s.z, 3, celluleNombre);
            if (i + 1 < profil[k].size()) {
                const sommetSol& t = profil[k][i + 1];
                table.addCell(100.0 * (t.z - s.z) / std::hypot(t.x - s.x, t.y - s.y), 2, celluleNombre);
            } else {
                table.addCell("&nbsp;");
            }
            table.endRow();
        }
    }
    document.append(table.render());
    return document;
}

htmlDocument rapportVolumes(const std::wstring& modele, const std::wstring& reference, const volumesTerrain& volumes)
{
    htmlDocument document = nouveau(L"Cubature");
    nommerModele(document, modele);
    ajouter(document, L"Compar\u00e9 \u00e0 : " + reference);
    htmlTable table = tableau();
    entetes(table, {L"", L"Volume (m\u00b3)", L"Surface (m\u00b2)"});
    const auto ligne = [&table](const wchar_t* nom, double volume, double surface) {
        table.beginRow();
        table.addCell(versAnsi(nom));
        table.addCell(volume, 3, celluleNombre);
        table.addCell(surface, 3, celluleNombre);
        table.endRow();
    };
    ligne(L"D\u00e9blai (terrain au-dessus)", volumes.deblai, volumes.aireDeblai);
    ligne(L"Remblai (terrain au-dessous)", volumes.remblai, volumes.aireRemblai);
    ligne(L"D\u00e9blai moins remblai", volumes.deblai - volumes.remblai, volumes.aire());
    document.append(table.render());
    ajouter(document, L"La derni\u00e8re surface est celle de tout ce qui a \u00e9t\u00e9 compar\u00e9.");
    return document;
}
