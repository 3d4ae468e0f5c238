#include "implantation/fichiersAppareil.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "services/codages.h"
#include "services/nombreFixe.h"

namespace {

/// A cell that holds a separator, a quote or a line break stands between quotes, its own doubled.
std::string cellule(const std::wstring& texte)
{
    const std::string octets = versAnsi(texte);
    if (octets.find_first_of(";\"\r\n") == std::string::npos)
        return octets;
    std::string entre = "\"";
    for (const char c : octets)
        entre += c == '"' ? std::string("\"\"") : std::string(1, c);
    return entre + '"';
}

std::string nombreOuVide(double valeur)
{
    return valeur == inconnu ? std::string() : nombreFixe(valeur, decimalesImplantation);
}

std::string place(const lieuNomme& lieu)
{
    return cellule(lieu.nom) + ";" + nombreOuVide(lieu.x) + ";" + nombreOuVide(lieu.y) + ";" + nombreOuVide(lieu.z);
}

std::string angleEnGrades(const donneesStation& station, const pointImplante& p)
{
    return nombreOuVide(enGrades(angleVers(station, p.x, p.y)));
}

/// One block of coordinate words.
class bloc {
public:
    bloc(const std::wstring& nom, bool longs) : m_longs(longs), m_texte(longs ? "*" : "")
    {
        std::string octets = versAnsi(nom);
        std::ranges::replace(octets, ' ', '_');
        if (octets.size() > taille())
            m_entier = false;
        else
            m_texte += "110001+" + std::string(taille() - octets.size(), '0') + octets + " ";
    }
    void mot(const char* index, double valeur)
    {
        const double unites = std::round(std::abs(valeur) * (m_longs ? 1e4 : 1e3));
        if (!(unites < (m_longs ? 9e15 : 1e8))) {
            m_entier = false;
            return;
        }
        const std::string chiffres = std::to_string(static_cast<std::uint64_t>(unites));
        const bool negatif = std::signbit(valeur) && unites > 0.0;
        m_texte += std::string(index) + ".." + (m_longs ? "06" : "00") + (negatif ? "-" : "+") +
                   std::string(taille() - chiffres.size(), '0') + chiffres + " ";
    }
    bool entier() const { return m_entier; }
    const std::string& texte() const { return m_texte; }

private:
    std::size_t taille() const { return m_longs ? 16 : 8; }

    bool m_longs;
    bool m_entier = true;
    std::string m_texte;
};

std::string json(const std::wstring& texte)
{
    std::string sortie = "\"";
    for (const char c : versUtf8(texte)) {
        constexpr char hexa[] = "0123456789abcdef";
        if (c == '"' || c == '\\')
            (sortie += '\\') += c;
        else if (static_cast<unsigned char>(c) < 0x20)
            sortie += std::string("\\u00") + hexa[c >> 4] + hexa[c & 15];
        else
            sortie += c;
    }
    return sortie + '"';
}

std::string json(double valeur)
{
    return estConnue(valeur) ? nombreFixe(valeur, 6) : "null";
}

const char* jsonVisible(const pointImplante& p, double hauteurMin)
{
    switch (etatDe(p, hauteurMin)) {
    case etatVisibilite::visible:
        return "true";
    case etatVisibilite::nonVisible:
        return "false";
    case etatVisibilite::nonVerifie:
        break;
    }
    return "null";
}

std::string jsonPoint(const pointImplante& p, const donneesStation* s, double hauteurMin)
{
    std::string t = "{\"nom\":" + json(p.nom);
    t += ",\"station\":" + (s ? json(s->station.nom) : "null");
    t += ",\"angle\":" + json(s ? enGrades(angleVers(*s, p.x, p.y)) : inconnu);
    t += ",\"distance\":" + json(s ? distanceVers(*s, p.x, p.y) : inconnu);
    t += ",\"reference\":" + (s ? json(texteReference(*s)) : "null");
    t += std::string(",\"visible\":") + jsonVisible(p, hauteurMin);
    t += ",\"hauteurVisible\":" + json(p.verifie ? p.hauteurVisible : inconnu);
    t += ",\"distancePente\":" + json(s ? distanceSuivantPente(*s, p) : inconnu);
    t += ",\"denivelee\":" + json(s ? deniveleeVers(*s, p) : inconnu);
    return t + ",\"x\":" + json(p.x) + ",\"y\":" + json(p.y) + ",\"z\":" + json(p.z) + "}";
}

} // namespace

std::string colonnesImplantation(const resultatImplantation& resultat)
{
    std::string texte = "Type;Nom;X;Y;Z;Station;Reference;Angle (gr);Distance;Distance pente;Denivelee\n";
    for (const blocStation& b : resultat.blocs) {
        texte += "S;" + place(b.station.station) + ";;" + cellule(texteReference(b.station)) + ";;;;\n";
        for (const pointImplante& p : b.points)
            texte += "P;" + place(p) + ";" + cellule(b.station.station.nom) + ";" + cellule(texteReference(b.station)) +
                     ";" + angleEnGrades(b.station, p) + ";" + nombreOuVide(distanceVers(b.station, p.x, p.y)) + ";" +
                     nombreOuVide(distanceSuivantPente(b.station, p)) + ";" +
                     nombreOuVide(deniveleeVers(b.station, p)) + "\n";
    }
    for (const pointImplante& p : resultat.sansStation)
        texte += "P;" + place(p) + ";;;;;;\n";
    return texte;
}

std::string motsImplantation(const resultatImplantation& resultat, bool longs, std::vector<std::wstring>& ecartes)
{
    std::string texte;
    const auto ecrire = [&](const lieuNomme& lieu, std::array<const char*, 3> index) {
        bloc b(lieu.nom, longs);
        b.mot(index[0], lieu.x);
        b.mot(index[1], lieu.y);
        if (lieu.z != inconnu)
            b.mot(index[2], lieu.z);
        if (b.entier())
            texte += b.texte() + "\n";
        else
            ecartes.push_back(lieu.nom);
    };
    constexpr std::array<const char*, 3> deStation{"84", "85", "86"}, dePoint{"81", "82", "83"};
    for (const blocStation& b : resultat.blocs) {
        ecrire(b.station.station, deStation);
        for (const pointImplante& p : b.points)
            ecrire(p, dePoint);
    }
    for (const pointImplante& p : resultat.sansStation)
        ecrire(p, dePoint);
    return texte;
}

std::string jsonImplantation(const resultatImplantation& resultat)
{
    std::string points;
    const auto ajouter = [&](const std::string& point) { points += (points.empty() ? "" : ",\n") + point; };
    for (const blocStation& b : resultat.blocs)
        for (const pointImplante& p : b.points)
            ajouter(jsonPoint(p, &b.station, resultat.hauteurMin));
    for (const pointImplante& p : resultat.sansStation)
        ajouter(jsonPoint(p, nullptr, resultat.hauteurMin));
    return "{\"points\":[" + points + "]" + (resultat.terrainPerime ? ",\"terrainPerime\":true" : "") + "}\n";
}
