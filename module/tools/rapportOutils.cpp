#include "tools/rapportOutils.h"

#include "reports/htmlStyle.h"
#include "reports/htmlText.h"
#include "services/codages.h"
#include "services/formatNombres.h"
#include "services/grandeur.h"

namespace {

std::string enHtml(std::wstring_view texte)
{
    return htmlEscaped(versAnsi(texte));
}

constexpr char vide[] = "&nbsp;";

} // namespace

rapportOutils::rapportOutils(std::wstring_view titre)
{
    m_document.addHeadLine(htmlHeadWindows1252);
    m_document.addHeadLine("<title>" + enHtml(titre) + "</title>\n");
    htmlStyle style;
    style.setFontFamily("Arial");
    style.setGenericFamily("serif");
    style.setFontSize({10, htmlSize::pt});
    m_document.addStyle(".petit", style.text());
    style.setBorderStyles(htmlBorderStyle(htmlBorderStyle::solid));
    style.setBorderWidths({1, htmlSize::px});
    style.setBorderColors({0, 0, 0});
    style.setPaddings({4, htmlSize::px});
    m_document.addStyle(".celnorm", style.text());
    style.setBackgroundColor({239, 239, 239});
    m_document.addStyle(".celgris", style.text());
    htmlStyle grand;
    grand.setFontFamily("Arial");
    grand.setGenericFamily("serif");
    grand.setFontSize({18, htmlSize::pt});
    m_document.addStyle(".grand", grand.text());
    grand.setFontSize({12, htmlSize::pt});
    m_document.addStyle(".titre", grand.text());
    m_document.append(htmlText(enHtml(titre), "class=grand").render());
}

void rapportOutils::sousTitre(std::wstring_view texte)
{
    m_document.append(htmlText(enHtml(texte), "class=titre").render());
}

void rapportOutils::paragraphe(std::wstring_view texte)
{
    m_document.append(htmlText(enHtml(texte), "class=petit").render());
}

htmlTable rapportOutils::tableau(std::initializer_list<std::wstring_view> titres) const
{
    htmlTable table;
    table.setBorder(0);
    table.setCellPadding(2);
    table.setCellSpacing(0);
    table.beginRow();
    for (const std::wstring_view titre : titres)
        table.addCell(titre.empty() ? vide : enHtml(titre), "class=celgris");
    return table;
}

void rapportOutils::texte(htmlTable& table, std::wstring_view contenu)
{
    table.addCell(contenu.empty() ? vide : enHtml(contenu), "class=celnorm");
}

void rapportOutils::nombre(htmlTable& table, double valeur, int decimales)
{
    nombreEcrit(table, valeur == inconnu ? std::wstring() : formaterFixe(valeur, decimales));
}

void rapportOutils::nombreEcrit(htmlTable& table, std::wstring_view contenu)
{
    table.addCell(contenu.empty() ? vide : enHtml(contenu), "class=celnorm align=right");
}
