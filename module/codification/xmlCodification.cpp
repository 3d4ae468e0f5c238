#include "codification/xmlCodification.h"

#include <algorithm>
#include <string_view>

#include <tinyxml.h>

#include "services/codages.h"
#include "services/entierDeTexte.h"
#include "services/formatNombres.h"
#include "services/reelDeTexte.h"
#include "services/Uncopyable.h"

namespace {

constexpr const char* elementRacine = "codifPoints";
constexpr const char* elementTable = "TBdata";
constexpr const char* elementCode = "codifPoint";

/// What an element without a text means: for a text, that the user cleared it.
enum class champVide { garderDefaut, vider };

/// One field of a code: its element, and how it is read and written.
struct champXml {
    const char* element;
    void (*lire)(codifPoint&, std::wstring_view);
    std::wstring (*ecrire)(const codifPoint&);
    champVide vide = champVide::garderDefaut;
};

template <emplacementCalque E>
constexpr champXml champCalque(const char* element)
{
    return {element, [](codifPoint& c, std::wstring_view v) { c.layers[E] = v; },
            [](const codifPoint& c) { return c.layers[E]; }, champVide::vider};
}

template <emplacementCalque E>
constexpr champXml champCouleur(const char* element)
{
    return {element, [](codifPoint& c, std::wstring_view v) { c.couleurs[E] = entierDeTexte(v); },
            [](const codifPoint& c) { return std::to_wstring(c.couleurs[E]); }};
}

/// In the order of writing, which is not that of the record.
const champXml champs[] = {
    {"code", [](codifPoint& c, std::wstring_view v) { c.code = entierDeTexte(v); },
     [](const codifPoint& c) { return std::to_wstring(c.code); }},
    {"libelle", [](codifPoint& c, std::wstring_view v) { c.libelle = v; },
     [](const codifPoint& c) { return c.libelle; }, champVide::vider},
    {"chemin", [](codifPoint& c, std::wstring_view v) { c.chemin = v; }, [](const codifPoint& c) { return c.chemin; },
     champVide::vider},
    {"tailleBlock", [](codifPoint& c, std::wstring_view v) { c.tailleBlock = reelDeTexte(v); },
     [](const codifPoint& c) { return formaterFixe(c.tailleBlock, 6); }},
    {"precisionAltitudes", [](codifPoint& c, std::wstring_view v) { c.precisionAltitudes = entierDeTexte(v); },
     [](const codifPoint& c) { return std::to_wstring(c.precisionAltitudes); }},
    champCalque<calqueBlock>("layerBlock"),
    champCalque<calqueAltitudes>("layerAltitudes"),
    champCalque<calqueNumero>("layerNumero"),
    champCalque<calqueObs>("layerObs"),
    champCalque<calqueCode>("layerCode"),
    champCouleur<calqueBlock>("coulLayerBlock"),
    champCouleur<calqueAltitudes>("coulLayerAltitudes"),
    champCouleur<calqueNumero>("coulLayerNumero"),
    champCouleur<calqueObs>("coulLayerObs"),
    champCouleur<calqueCode>("coulLayerCode"),
};

/// Blanks inside texts count: the library would make one of several. Its setting is one for the whole process.
class blancsGardes : Uncopyable {
public:
    blancsGardes() : avant(TiXmlBase::IsWhiteSpaceCondensed()) { TiXmlBase::SetCondenseWhiteSpace(false); }
    ~blancsGardes() { TiXmlBase::SetCondenseWhiteSpace(avant); }

private:
    bool avant;
};

/// The library reads nested elements by recursion: a file may not nest them without end.
class imbrication {
public:
    explicit imbrication(std::string_view leTexte) : texte(leTexte) {}

    bool depasse(int plusProfond)
    {
        while (!texte.empty() && profondeur <= plusProfond)
            if (texte.starts_with("<!--"))
                passer("-->");
            else if (texte.starts_with("<![CDATA["))
                passer("]]>");
            else if (texte.starts_with("<!") || texte.starts_with("<?") || texte.front() != '<')
                texte.remove_prefix(1);
            else
                lireBalise();
        return profondeur > plusProfond;
    }

private:
    void passer(std::string_view fin)
    {
        const std::size_t place = texte.find(fin);
        texte.remove_prefix(place == texte.npos ? texte.size() : place + fin.size());
    }

    /// Up to its end, which no attribute's value makes.
    void lireBalise()
    {
        profondeur += texte.starts_with("</") ? -1 : 1;
        char guillemet = '\0', avant = '\0';
        std::size_t i = 1;
        for (; i < texte.size() && (guillemet != '\0' || texte[i] != '>'); avant = texte[i++])
            if (guillemet != '\0')
                guillemet = texte[i] == guillemet ? '\0' : guillemet;
            else if (texte[i] == '"' || texte[i] == '\'')
                guillemet = texte[i];
        if (avant == '/' && i > 2) // but for "</>"
            --profondeur;
        texte.remove_prefix(std::min(i + 1, texte.size()));
    }

    std::string_view texte; // what is not read yet
    int profondeur = 0;
};

/// The library writes what looks like a reference to a character as it stands, so that such a text would come back
/// changed, or break the file: it goes into a section of plain characters.
TiXmlText texteXml(std::string octets)
{
    constexpr const char* reference = "&#x";
    const auto place = octets.find(reference);
    const bool finDeSection = octets.find("]]>") != std::string::npos;
    if (place != std::string::npos && finDeSection)
        for (auto i = place; i != std::string::npos; i = octets.find(reference, i))
            octets.insert(i + 1, 1, ' '); // neither way can hold both
    TiXmlText texte(octets.c_str());
    texte.SetCDATA(place != std::string::npos && !finDeSection);
    return texte;
}

/// A value on lines of its own, as people lay a file out: blanks at either end that hold a line end are not of it.
std::wstring_view sansMiseEnPage(std::wstring_view texte)
{
    constexpr std::wstring_view blancs = L" \t\r\n";
    const auto surPlusieursLignes = [](std::wstring_view vide) { return vide.find_first_of(L"\r\n") != vide.npos; };
    const std::size_t debut = std::min(texte.find_first_not_of(blancs), texte.size());
    if (surPlusieursLignes(texte.substr(0, debut)))
        texte.remove_prefix(debut);
    const std::size_t fin = texte.find_last_not_of(blancs) + 1; // 0 when all is blank
    return surPlusieursLignes(texte.substr(fin)) ? texte.substr(0, fin) : texte;
}

codifPoint codeDe(const TiXmlElement& element)
{
    codifPoint code;
    for (const champXml& champ : champs) {
        const TiXmlElement* const contenant = element.FirstChildElement(champ.element);
        const TiXmlNode* const premier = contenant ? contenant->FirstChild() : nullptr;
        const TiXmlText* const texte = premier ? premier->ToText() : nullptr;
        const std::wstring lu = texte ? depuisUtf8(texte->Value()) : std::wstring();
        const std::wstring_view valeur = sansMiseEnPage(lu);
        if (!valeur.empty() || (contenant && (!premier || texte) && champ.vide == champVide::vider))
            champ.lire(code, valeur);
    }
    return code;
}

} // namespace

std::string xmlDeCodes(std::span<const codifPoint> codes)
{
    TiXmlDocument document;
    TiXmlElement table(elementTable);
    for (const codifPoint& code : codes) {
        TiXmlElement element(elementCode);
        for (const champXml& champ : champs) {
            TiXmlElement contenant(champ.element);
            contenant.InsertEndChild(texteXml(versUtf8(champ.ecrire(code))));
            element.InsertEndChild(contenant);
        }
        table.InsertEndChild(element);
    }
    TiXmlElement racine(elementRacine);
    racine.InsertEndChild(table);
    document.InsertEndChild(racine);
    TiXmlPrinter imprimeur;
    document.Accept(&imprimeur);
    return imprimeur.Str();
}

bool codesDeXml(const std::string& octets, std::vector<codifPoint>& codes)
{
    constexpr int plusProfond = 100;
    if (imbrication(octets).depasse(plusProfond))
        return false;
    const blancsGardes garde;
    TiXmlDocument document;
    document.Parse((estUtf8(octets) ? octets : versUtf8(depuisAnsi(octets))).c_str(), nullptr, TIXML_ENCODING_UTF8);
    const TiXmlElement* const racine = document.Error() ? nullptr : document.FirstChildElement(elementRacine);
    const TiXmlElement* const table = racine ? racine->FirstChildElement(elementTable) : nullptr;
    if (!table)
        return false;
    for (const auto* e = table->FirstChildElement(elementCode); e; e = e->NextSiblingElement(elementCode))
        codes.push_back(codeDe(*e));
    return true;
}
