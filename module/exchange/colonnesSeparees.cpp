#include "exchange/colonnesSeparees.h"

#include <algorithm>
#include <array>
#include <utility>

#include "exchange/celluleLue.h"
#include "exchange/lecteurLignes.h"
#include "services/codages.h"
#include "services/lettres.h"

namespace {

constexpr std::string_view marqueUtf8 = "\xEF\xBB\xBF", marqueUtf16 = "\xFF\xFE", marqueUtf16Inverse = "\xFE\xFF";

/// Longer lines hold no point.
constexpr std::size_t longueurLigne = 1 << 14;

// --- Encodings -----------------------------------------------------------------------------------------------------

enum class codage { octets, utf8, utf16, utf16Inverse };

/// Without a mark, UTF-16 is told by the zeros that stand in every other byte of figures.
codage codageDe(std::string_view debut)
{
    if (debut.starts_with(marqueUtf8))
        return codage::utf8;
    if (debut.starts_with(marqueUtf16))
        return codage::utf16;
    if (debut.starts_with(marqueUtf16Inverse))
        return codage::utf16Inverse;
    if (debut.size() >= 4 && debut[1] == '\0' && debut[3] == '\0' && debut[0] != '\0' && debut[2] != '\0')
        return codage::utf16;
    if (debut.size() >= 4 && debut[0] == '\0' && debut[2] == '\0' && debut[1] != '\0' && debut[3] != '\0')
        return codage::utf16Inverse;
    return codage::octets;
}

/// Calls with a source in UTF-8 or in bytes, and whether it is UTF-8 for certain.
template <class Suite>
void decoder(sourceOctets& source, Suite suite)
{
    const codage c = codageDe(source.debut());
    if (c != codage::utf16 && c != codage::utf16Inverse)
        return suite(source, c == codage::utf8);
    sourceUtf16 convertie(source, c == codage::utf16Inverse);
    suite(convertie, true);
}

std::string_view sansMarque(std::string_view ligne)
{
    return ligne.substr(ligne.starts_with(marqueUtf8) ? marqueUtf8.size() : 0);
}

// --- Guessing ------------------------------------------------------------------------------------------------------

/// The first lines with anything on them.
std::vector<std::string> premieresLignes(sourceOctets& source, std::size_t nombre)
{
    std::vector<std::string> premieres;
    for (lecteurLignes lignes(source, longueurLigne, finDeLigne(source.debut()));
         premieres.size() < nombre && lignes.suivante();) {
        const std::string_view ligne = sansMarque(lignes.ligne());
        if (ligne.find_first_not_of(" \t") != std::string_view::npos)
            premieres.emplace_back(ligne);
        lignes.passerReste();
    }
    return premieres;
}

std::size_t nombresDe(const std::vector<std::string>& cellules)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(cellules, [](const std::string& c) { return nombreDeCellule(c).has_value(); }));
}

char separateurDe(const std::vector<std::string>& lignes)
{
    char meilleur = ';';
    std::size_t plusGrand = 0;
    std::vector<std::string> cellules;
    for (const char separateur : {';', '\t', ',', ' '}) {
        std::size_t nombres = 0;
        for (const std::string& ligne : lignes) {
            decouperCellules(ligne, separateur, cellules);
            nombres += cellules.size() > 1 ? nombresDe(cellules) : 0;
        }
        if (nombres > plusGrand) {
            plusGrand = nombres;
            meilleur = separateur;
        }
    }
    return meilleur;
}

/// The words that programs put over their columns; the first of a kind counts.
colonne colonneNommee(std::wstring nom)
{
    struct mots {
        colonne sens;
        std::wstring_view liste;
    };
    static constexpr std::array<mots, 6> connus{{
        {colonne::nom, L"|n°|no|num|numero|numéro|nom|name|point|points|pt|pts|id|matricule|number|"},
        {colonne::x, L"|x|e|est|east|easting|"},
        {colonne::y, L"|y|n|nord|north|northing|"},
        {colonne::z, L"|z|h|alt|altitude|hauteur|height|elevation|élévation|cote|ngf|"},
        {colonne::code, L"|code|codes|"},
        {colonne::observation, L"|observation|observations|obs|libelle|libellé|label|desc|description|remarque|"},
    }};
    nom = L"|" + enMinuscules(std::move(nom)) + L"|";
    for (const mots& m : connus)
        if (m.liste.find(nom) != std::wstring_view::npos)
            return m.sens;
    return colonne::ignoree;
}

bool contient(const std::vector<colonne>& colonnes, colonne sens)
{
    return std::ranges::find(colonnes, sens) != colonnes.end();
}

/// "N" is north, but the number where another column is named as north is, or a further one "N" too.
std::vector<colonne> colonnesNommees(const std::vector<std::string>& cellules)
{
    const auto estN = [](const std::string& cellule) { return cellule == "N" || cellule == "n"; };
    const auto sensDe = [](const std::string& cellule) { return colonneNommee(texteDeCellule(cellule, false)); };
    const bool autreNord = std::ranges::any_of(
        cellules, [&](const std::string& cellule) { return !estN(cellule) && sensDe(cellule) == colonne::y; });
    std::vector<colonne> colonnes;
    for (auto cellule = cellules.begin(); cellule != cellules.end(); ++cellule) {
        const bool numero = estN(*cellule) && (autreNord || std::any_of(cellule + 1, cellules.end(), estN));
        const colonne sens = numero ? colonne::nom : sensDe(*cellule);
        colonnes.push_back(contient(colonnes, sens) ? colonne::ignoree : sens);
    }
    return colonnes;
}

/// All of them, however narrow the first lines are: codes and observations may begin further down.
/// @param cellules of a line with numbers; @param largeur cells of the widest line
std::vector<colonne> colonnesUsuelles(const std::vector<std::string>& cellules, std::size_t largeur)
{
    constexpr std::array usuelles{colonne::nom, colonne::x,    colonne::y,
                                  colonne::z,   colonne::code, colonne::observation};
    const bool toutNombre = nombresDe(cellules) == cellules.size();
    const bool decimales = !cellules.empty() && cellules[0].find_first_of(".,") != std::string::npos;
    const bool sansNom = toutNombre && (cellules.size() == 2 || (cellules.size() == 3 && decimales));
    const auto debut = usuelles.begin() + (sansNom ? 1 : 0);
    std::vector<colonne> colonnes(debut, usuelles.end());
    colonnes.resize(std::max(largeur, colonnes.size()), colonne::observation);
    return colonnes;
}

formatColonnes deviner(sourceOctets& source)
{
    constexpr std::size_t lignesVues = 50;
    const std::vector<std::string> lignes = premieresLignes(source, lignesVues);
    formatColonnes format;
    format.separateur = separateurDe(lignes);
    if (lignes.empty())
        return format;
    std::vector<std::string> cellules;
    decouperCellules(lignes[0], format.separateur, cellules);
    format.enTete = nombresDe(cellules) == 0;
    if (format.enTete) {
        format.colonnes = colonnesNommees(cellules);
        if (contient(format.colonnes, colonne::x) && contient(format.colonnes, colonne::y))
            return format;
        if (lignes.size() > 1)
            decouperCellules(lignes[1], format.separateur, cellules);
    }
    std::vector<std::string> autres;
    std::size_t largeur = 0; // the first line may lack what later ones have
    for (const std::string& ligne : lignes) {
        decouperCellules(ligne, format.separateur, autres);
        largeur = std::max(largeur, autres.size());
    }
    format.colonnes = colonnesUsuelles(cellules, largeur);
    return format;
}

// --- Reading -------------------------------------------------------------------------------------------------------

/// One file being read.
class lecture {
public:
    /// @param devine nobody chose the columns: those that are not taken are told
    lecture(const formatColonnes& format, bool devine, bool utf8, pointsLus& lus) :
        m_format(format),
        m_devine(devine),
        m_utf8(utf8),
        m_lus(lus)
    {
    }

    void lire(sourceOctets& source)
    {
        bool enTete = m_format.enTete;
        for (lecteurLignes lignes(source, longueurLigne, finDeLigne(source.debut())); lignes.suivante();) {
            m_ligne = sansMarque(lignes.ligne());
            m_numero = lignes.numero();
            if (lignes.coupee())
                ecarter(L"ligne trop longue pour un point.");
            else if (m_ligne.find_first_not_of(" \t") != std::string_view::npos)
                std::exchange(enTete, false) ? lireEnTete() : lireLigne();
            lignes.passerReste();
        }
    }

private:
    void ecarter(std::wstring raison) { m_lus.ecarter(m_numero, texte(m_ligne), std::move(raison)); }
    void remarquer(std::wstring raison) { m_lus.remarquer(m_numero, texte(m_ligne), std::move(raison)); }
    std::wstring texte(std::string_view octets) const { return texteDeCellule(octets, m_utf8); }

    void lireEnTete()
    {
        if (!m_devine)
            return;
        decouperCellules(m_ligne, m_format.separateur, m_cellules);
        std::wstring laissees;
        for (std::size_t i = 0; i < m_cellules.size() && i < m_format.colonnes.size(); ++i)
            if (m_format.colonnes[i] == colonne::ignoree && !m_cellules[i].empty())
                ajouterMots(laissees, entreGuillemets(texte(m_cellules[i])));
        if (!laissees.empty())
            remarquer(L"colonnes laissées de côté : " + laissees + L".");
    }

    void lireLigne()
    {
        if (!decouperCellules(m_ligne, m_format.separateur, m_cellules))
            return ecarter(L"guillemet qui n'est pas refermé.");
        pointXYZ point;
        point.code = m_lus.codeAbsent;
        m_raison.clear();
        m_remarque.clear();
        bool xLu = false, yLu = false;
        for (std::size_t i = 0; i < m_cellules.size() && i < m_format.colonnes.size(); ++i) {
            const std::string& cellule = m_cellules[i];
            switch (m_format.colonnes[i]) {
            case colonne::x:
                xLu = nombre(L"X", cellule, point.x);
                break;
            case colonne::y:
                yLu = nombre(L"Y", cellule, point.y);
                break;
            case colonne::z:
                if (!cellule.empty() && cellule != "." && !nombre(L"Z", cellule, point.z))
                    return refuserNombre();
                break;
            case colonne::nom:
                point.nom = nomDePoint(texte(cellule), m_remarque);
                if (cellule.empty())
                    m_remarque = pointSansNom;
                break;
            case colonne::observation:
                ajouterMots(point.observation, texte(cellule));
                break;
            case colonne::code:
                lireCode(cellule, point);
                break;
            case colonne::ignoree:
                break;
            }
        }
        if (!xLu || !yLu)
            return refuserNombre();
        for (std::size_t i = m_format.colonnes.size(); i < m_cellules.size(); ++i)
            lireEnTrop(m_cellules[i], point);
        garder(std::move(point));
    }

    bool nombre(const wchar_t* nomme, const std::string& cellule, double& valeur)
    {
        const std::optional<double> lu = nombreDeCellule(cellule);
        if (lu)
            valeur = *lu;
        else if (m_raison.empty())
            m_raison = cellule.empty() ? std::wstring(nomme) + L" absent."
                                       : nomme + (L" " + entreGuillemets(texte(cellule))) + L" n'est pas un nombre.";
        return lu.has_value();
    }

    void refuserNombre() { ecarter(m_raison.empty() ? L"pas assez de colonnes pour X et Y." : m_raison); }

    void lireCode(const std::string& cellule, pointXYZ& point)
    {
        if (cellule.empty())
            return;
        if (const std::optional<int> code = entierDeCellule(cellule)) {
            point.code = *code == 0 ? 1 : *code;
            return;
        }
        point.code = 1;
        const std::wstring code = texte(cellule);
        ajouterMots(point.observation, code);
        ajouterMots(m_remarque, codeEnLettres(code));
    }

    /// Beyond the last column: the words of an observation go on.
    void lireEnTrop(const std::string& cellule, pointXYZ& point)
    {
        if (m_format.colonnes.back() == colonne::observation)
            ajouterMots(point.observation, texte(cellule));
        else if (!cellule.empty())
            ajouterMots(m_remarque, entreGuillemets(texte(cellule)) + L", au-delà des colonnes, laissé de côté.");
    }

    void garder(pointXYZ&& point)
    {
        ajouterMots(m_remarque, remarquesSur(point));
        if (!m_remarque.empty())
            remarquer(m_remarque);
        m_lus.points.push_back(std::move(point));
    }

    const formatColonnes& m_format;
    bool m_devine, m_utf8;
    pointsLus& m_lus;
    std::string_view m_ligne;
    std::size_t m_numero = 0;
    std::vector<std::string> m_cellules;
    std::wstring m_raison, m_remarque; // of the line being read
};

} // namespace

bool estTexteEnColonnes(std::string_view debut)
{
    bool texte = false;
    sourceMemoire octets(debut);
    decoder(octets, [&texte](sourceOctets& source, bool) {
        texte = !source.debut().empty() && source.debut().find('\0') == std::string_view::npos;
    });
    return texte;
}

formatColonnes devinerColonnes(std::string_view debut)
{
    sourceMemoire octets(debut);
    formatColonnes format;
    decoder(octets, [&format](sourceOctets& texte, bool) { format = deviner(texte); });
    return format;
}

std::vector<std::vector<std::wstring>> apercuColonnes(std::string_view debut, char separateur, std::size_t lignes)
{
    std::vector<std::vector<std::wstring>> apercu;
    sourceMemoire octets(debut);
    decoder(octets, [&](sourceOctets& texte, bool utf8) {
        std::vector<std::string> cellules;
        for (const std::string& ligne : premieresLignes(texte, lignes)) {
            decouperCellules(ligne, separateur, cellules);
            std::vector<std::wstring>& rangee = apercu.emplace_back();
            for (const std::string& cellule : cellules)
                rangee.push_back(texteDeCellule(cellule, utf8));
        }
    });
    return apercu;
}

void lecteurColonnes::lire(sourceOctets& source, pointsLus& lus) const
{
    const formatColonnes format = m_format ? *m_format : devinerColonnes(source.debut());
    decoder(source, [&](sourceOctets& texte, bool utf8) {
        if (texte.debut().find('\0') != std::string_view::npos)
            return lus.refuser(L"ce n'est pas un fichier de texte.");
        lecture(format, !m_format, utf8, lus).lire(texte);
    });
}
