#include "exchange/landXml.h"

#include <algorithm>
#include <array>
#include <utility>

#include <expat.h>

#include "exchange/celluleLue.h"
#include "exchange/memoireXml.h"
#include "services/codages.h"
#include "services/grandeur.h"
#include "services/lettres.h"
#include "services/reelDeTexte.h"

namespace {

/// Bytes that the parser may keep without understanding one thing more of them: a tag, a name, an attribute.
constexpr long long plusLongElement = 1 << 20;
/// Of the text of a point: three numbers.
constexpr std::size_t plusLongTexte = 1024;

std::string_view sansPrefixe(std::string_view nom)
{
    return nom.substr(nom.rfind(':') + 1); // 0 without one
}

std::wstring attribut(const char** attributs, std::string_view voulu)
{
    for (; attributs[0]; attributs += 2)
        if (attributs[0] == voulu)
            return depuisUtf8(attributs[1]);
    return {};
}

/// The metres of a unit of LandXML; 0 for an unknown one.
double metresDe(std::wstring_view unite)
{
    struct ligne {
        std::wstring_view nom;
        double metres;
    };
    static constexpr std::array<ligne, 8> unites{{{L"meter", 1.0},
                                                  {L"kilometer", 1000.0},
                                                  {L"centimeter", 0.01},
                                                  {L"millimeter", 0.001},
                                                  {L"foot", 0.3048},
                                                  {L"USSurveyFoot", 1200.0 / 3937.0},
                                                  {L"inch", 0.0254},
                                                  {L"mile", 1609.344}}};
    const auto* const u = std::ranges::find(unites, unite, &ligne::nom);
    return u == unites.end() ? 0.0 : u->metres;
}

/// Gives the code page's 256 characters to the parser, which knows UTF-8, UTF-16 and ISO-8859-1.
int codePage(void*, const XML_Char* nom, XML_Encoding* codage)
{
    if (enMinuscules(depuisUtf8(nom)) != L"windows-1252")
        return XML_STATUS_ERROR;
    for (int i = 0; i < 256; ++i)
        codage->map[i] = static_cast<int>(static_cast<char32_t>(depuisAnsi(std::string(1, static_cast<char>(i)))[0]));
    codage->data = nullptr;
    codage->convert = nullptr;
    codage->release = nullptr;
    return XML_STATUS_OK;
}

struct liberation {
    void operator()(XML_Parser analyseur) const { XML_ParserFree(analyseur); }
};

std::wstring malForme(const std::wstring& detail)
{
    return L"XML mal formé, la suite n'est pas lue (" + detail + L").";
}

/// Why the parser stopped, in French; by its number where a user could not mend it anyway.
std::wstring raisonArret(XML_Error erreur)
{
    switch (erreur) {
    case XML_ERROR_NO_MEMORY:
        return L"éléments emboîtés ou noms sans fin : ce n'est pas un levé.";
    case XML_ERROR_NO_ELEMENTS:
        return L"ce document XML est vide ou inachevé.";
    case XML_ERROR_UNCLOSED_TOKEN:
    case XML_ERROR_UNCLOSED_CDATA_SECTION:
    case XML_ERROR_PARTIAL_CHAR:
        return L"ce document XML s'arrête au milieu d'un élément.";
    case XML_ERROR_TAG_MISMATCH:
        return malForme(L"une balise ferme un autre élément que le dernier ouvert");
    case XML_ERROR_DUPLICATE_ATTRIBUTE:
        return malForme(L"un attribut répété");
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
        return malForme(L"du texte après la fin du document");
    case XML_ERROR_UNDEFINED_ENTITY:
        return malForme(L"un caractère « &nom; » inconnu");
    case XML_ERROR_UNKNOWN_ENCODING:
    case XML_ERROR_INCORRECT_ENCODING:
        return L"codage de caractères inconnu, ou autre que celui que le document annonce.";
    case XML_ERROR_SYNTAX:
    case XML_ERROR_INVALID_TOKEN:
        return malForme(L"un caractère ou une balise que le XML n'admet pas");
    default:
        return malForme(L"erreur " + std::to_wstring(erreur));
    }
}

/// One document being read.
class lecture {
public:
    explicit lecture(pointsLus& lus) :
        m_lus(lus),
        m_analyseur(XML_ParserCreate_MM(nullptr, memoireXmlBornee(), nullptr))
    {
        if (!m_analyseur)
            throw std::bad_alloc();
        XML_SetUserData(m_analyseur.get(), this);
        XML_SetUnknownEncodingHandler(m_analyseur.get(), codePage, nullptr);
        XML_SetElementHandler(
            m_analyseur.get(),
            [](void* l, const XML_Char* nom, const XML_Char** a) { static_cast<lecture*>(l)->ouvrir(nom, a); },
            [](void* l, const XML_Char*) { static_cast<lecture*>(l)->fermer(); });
        XML_SetCharacterDataHandler(m_analyseur.get(), [](void* l, const XML_Char* texte, int taille) {
            static_cast<lecture*>(l)->ajouter({texte, static_cast<std::size_t>(taille)});
        });
    }

    void lire(sourceOctets& source)
    {
        constexpr int bloc = 1 << 16;
        long long donnes = 0;
        for (std::size_t lus = 1; lus > 0;) {
            char* const tampon = static_cast<char*>(XML_GetBuffer(m_analyseur.get(), bloc));
            lus = tampon ? source.lire(tampon, bloc) : 0;
            donnes += static_cast<long long>(lus);
            if (lus == 0 && source.enEchec()) // whoever opened it tells
                return;
            if (!tampon || XML_ParseBuffer(m_analyseur.get(), static_cast<int>(lus), lus == 0) != XML_STATUS_OK)
                return refuser();
            if (donnes - XML_GetCurrentByteIndex(m_analyseur.get()) > plusLongElement)
                return m_lus.refuser(L"élément de plus de 1 Mo : ce n'est pas un levé.", ligne());
        }
        if (!m_landXml)
            m_lus.refuser(L"ce document XML n'est pas un LandXML.");
    }

private:
    std::size_t ligne() const { return XML_GetCurrentLineNumber(m_analyseur.get()); }

    void refuser() { m_lus.refuser(raisonArret(XML_GetErrorCode(m_analyseur.get())), ligne()); }

    void ouvrir(std::string_view nomComplet, const char** attributs)
    {
        const std::string_view nom = sansPrefixe(nomComplet);
        m_landXml = m_landXml || nom == "LandXML";
        if (nom == "Metric" || nom == "Imperial")
            lireUnite(attribut(attributs, "linearUnit"));
        if (m_profondeur > 0)
            return entrer(nom, attributs);
        if (nom != "CgPoint")
            return;
        m_profondeur = 1;
        m_ligne = ligne();
        m_texte.clear();
        m_remarque.clear();
        m_point = pointXYZ();
        m_point.nom = nomDePoint(attribut(attributs, "name"), m_remarque);
        if (m_point.nom.empty())
            m_point.nom = nomDePoint(attribut(attributs, "oID"), m_remarque);
        lireCode(attribut(attributs, "code"));
        ajouterMots(m_point.observation, attribut(attributs, "desc"));
        m_reference = attribut(attributs, "pntRef");
    }

    /// An element within a point: its text is none of the point's.
    void entrer(std::string_view nom, const char** attributs)
    {
        ++m_profondeur;
        if (nom == "CgPoint")
            m_lus.ecarter(ligne(), attribut(attributs, "name"),
                          L"point dans un autre point : seul celui du dehors est lu.");
    }

    void lireUnite(const std::wstring& unite)
    {
        if (m_unite) { // all points would be converted once more for each
            if (unite != *m_unite)
                m_lus.remarquer(ligne(), {},
                                L"seconde unité " + entreGuillemets(unite) + L" : la première est gardée.");
            return;
        }
        m_unite = unite;
        const double metres = metresDe(unite);
        m_metres = metres == 0.0 ? 1.0 : metres;
        for (pointXYZ& p : m_lus.points) // sections come in any order
            for (double* const v : {&p.x, &p.y, &p.z})
                *v *= *v == inconnu ? 1.0 : m_metres;
        if (metres == 0.0)
            m_lus.remarquer(ligne(), {}, L"unité " + entreGuillemets(unite) + L" inconnue, le mètre est pris.");
        else if (metres != 1.0)
            m_lus.remarquer(ligne(), {}, L"unité " + entreGuillemets(unite) + L" convertie en mètres.");
    }

    void lireCode(const std::wstring& code)
    {
        m_point.code = code.empty() ? m_lus.codeAbsent : 1;
        if (code.empty())
            return;
        if (const std::optional<int> nombre = entierDeCellule(versAnsi(code))) {
            m_point.code = *nombre == 0 ? 1 : *nombre;
            return;
        }
        m_point.observation = code;
        ajouterMots(m_remarque, codeEnLettres(code));
    }

    void ajouter(std::string_view texte)
    {
        if (m_profondeur == 1 && m_texte.size() <= plusLongTexte)
            m_texte += texte;
    }

    void fermer()
    {
        if (m_profondeur == 0 || --m_profondeur > 0)
            return;
        std::ranges::replace_if(
            m_texte, [](char c) { return c == '\n' || c == '\r'; }, ' ');
        decouperCellules(m_texte, ' ', m_cellules);
        if (m_cellules.empty() && !m_reference.empty())
            return ecarter(L"renvoi au point " + entreGuillemets(m_reference) + L", sans coordonnées.");
        std::array<double, 3> coordonnees{};
        for (std::size_t i = 0; i < m_cellules.size() && i < coordonnees.size(); ++i) {
            const std::optional<double> nombre = nombreDeCellule(m_cellules[i]);
            if (!nombre)
                return ecarter(entreGuillemets(depuisUtf8(m_cellules[i])) + L" n'est pas un nombre.");
            coordonnees[i] = *nombre * m_metres;
        }
        if (m_cellules.size() < 2)
            return ecarter(L"coordonnées nord et est absentes.");
        m_point.x = coordonnees[1];
        m_point.y = coordonnees[0];
        if (m_cellules.size() > 2)
            m_point.z = coordonnees[2];
        if (m_cellules.size() > coordonnees.size())
            ajouterMots(m_remarque, L"plus de trois nombres : les trois premiers sont pris.");
        if (m_point.nom.empty())
            ajouterMots(m_remarque, pointSansNom);
        ajouterMots(m_remarque, remarquesSur(m_point));
        if (!m_remarque.empty())
            m_lus.remarquer(m_ligne, depuisAnsi(m_point.nom), m_remarque);
        m_lus.points.push_back(std::move(m_point));
    }

    void ecarter(std::wstring raison)
    {
        m_lus.ecarter(m_ligne, depuisAnsi(m_point.nom) + L" " + depuisUtf8(m_texte), std::move(raison));
    }

    pointsLus& m_lus;
    std::unique_ptr<XML_ParserStruct, liberation> m_analyseur;
    bool m_landXml = false;
    int m_profondeur = 0; // elements that are open, the point the outermost
    std::optional<std::wstring> m_unite;
    double m_metres = 1.0; // of the file's unit
    pointXYZ m_point;
    std::size_t m_ligne = 0;
    std::string m_texte;
    std::vector<std::string> m_cellules;
    std::wstring m_reference, m_remarque;
};

} // namespace

bool lecteurLandXml::reconnait(std::wstring_view extension, std::string_view debut) const
{
    return extension == L".xml" || extension == L".landxml" || debut.find("<LandXML") != std::string_view::npos;
}

void lecteurLandXml::lire(sourceOctets& source, pointsLus& lus) const
{
    lecture(lus).lire(source);
}
