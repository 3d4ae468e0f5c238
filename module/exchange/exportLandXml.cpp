#include <array>
#include <charconv>

#include "exchange/exportPoints.h"
#include "services/codages.h"
#include "services/grandeur.h"

namespace {

/// ` nom="valeur"`. XML has no control characters: they become blanks.
void ajouterAttribut(std::string& xml, std::string_view nom, std::string_view ansi)
{
    xml.append(1, ' ').append(nom).append("=\"");
    for (const wchar_t c : depuisAnsi(ansi)) {
        if (c == L'&')
            xml += "&amp;";
        else if (c == L'<')
            xml += "&lt;";
        else if (c == L'"')
            xml += "&quot;";
        else
            ajouterUtf8(xml, c < 0x20 ? U' ' : static_cast<char32_t>(c));
    }
    xml += '"';
}

void ajouterNombre(std::string& xml, double valeur)
{
    std::array<char, 32> chiffres;
    const auto fin = std::to_chars(chiffres.data(), chiffres.data() + chiffres.size(), valeur);
    xml.append(chiffres.data(), fin.ptr);
}

std::string enTete(std::time_t date)
{
    std::array<char, 64> attributs{};
    if (const std::tm* const t = std::gmtime(&date))
        std::strftime(attributs.data(), attributs.size(), "date=\"%Y-%m-%d\" time=\"%H:%M:%S\"", t);
    return std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" version=\"1.2\" ") +
           attributs.data() +
           ">\n"
           "  <Units><Metric areaUnit=\"squareMeter\" linearUnit=\"meter\" volumeUnit=\"cubicMeter\""
           " temperatureUnit=\"celsius\" pressureUnit=\"milliBars\"/></Units>\n"
           "  <Application name=\"Vela\"/>\n"
           "  <CgPoints>\n";
}

void ligneXml(const pointExporte& p, std::string& xml)
{
    xml = "    <CgPoint";
    ajouterAttribut(xml, "name", p.nom);
    ajouterAttribut(xml, "code", std::to_string(p.code));
    if (!p.observation.empty())
        ajouterAttribut(xml, "desc", p.observation);
    xml += '>';
    ajouterNombre(xml, p.y);
    xml += ' ';
    ajouterNombre(xml, p.x);
    if (p.z != inconnu) {
        xml += ' ';
        ajouterNombre(xml, p.z);
    }
    xml += "</CgPoint>\n";
}

} // namespace

issueEcriture exporterLandXml(const std::filesystem::path& fichier, const pointSuivant& suivant, std::time_t date,
                              std::error_code* erreur)
{
    fichierRemplace cible(fichier, fichierRemplace::maniere::aCote);
    cible.ecrire(enTete(date));
    std::string xml;
    for (pointExporte p; suivant(p);) {
        ligneXml(p, xml);
        if (!cible.ecrire(xml))
            break;
    }
    cible.ecrire("  </CgPoints>\n</LandXML>\n");
    const issueEcriture issue = cible.terminer();
    if (erreur)
        *erreur = cible.erreur();
    return issue;
}
