#include "codification/xmlCodification.h"

#include <tinyxml.h>

#include "services/codages.h"
#include "services/nombresTexte.h"
#include "services/reelDeTexte.h"

namespace {

constexpr const char* elementRacine = "codifPoints";
constexpr const char* elementTable = "TBdata";
constexpr const char* elementCode = "codifPoint";

/// What an element without a text means: for a text, that the user cleared it.
enum class champVide { garderDefaut, vider };

/// One field of a code: its element, and how it is read and written.
struct champXml {
    const char* element;
    void (*lire)(codifPoint&, const CString&);
    CString (*ecrire)(const codifPoint&);
    champVide vide = champVide::garderDefaut;
};

template <emplacementCalque E>
constexpr champXml champCalque(const char* element)
{
    return {element, [](codifPoint& c, const CString& v) { c.layers[E] = v; },
            [](const codifPoint& c) { return c.layers[E]; }, champVide::vider};
}

template <emplacementCalque E>
constexpr champXml champCouleur(const char* element)
{
    return {element, [](codifPoint& c, const CString& v) { c.couleurs[E] = entierDeTexte(v); },
            [](const codifPoint& c) { return texteEntier(c.couleurs[E]); }};
}

/// In the order of writing, which is not that of the record.
const champXml champs[] = {
    {"code", [](codifPoint& c, const CString& v) { c.code = entierDeTexte(v); },
     [](const codifPoint& c) { return texteEntier(c.code); }},
    {"libelle", [](codifPoint& c, const CString& v) { c.libelle = v; }, [](const codifPoint& c) { return c.libelle; },
     champVide::vider},
    {"chemin", [](codifPoint& c, const CString& v) { c.chemin = v; }, [](const codifPoint& c) { return c.chemin; },
     champVide::vider},
    {"tailleBlock", [](codifPoint& c, const CString& v) { c.tailleBlock = reelDeTexte(v.GetString()); },
     [](const codifPoint& c) {
         CString texte;
         texte.Format(L"%lf", c.tailleBlock);
         return texte;
     }},
    {"precisionAltitudes", [](codifPoint& c, const CString& v) { c.precisionAltitudes = entierDeTexte(v); },
     [](const codifPoint& c) { return texteEntier(c.precisionAltitudes); }},
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
class blancsGardes {
public:
    blancsGardes() : avant(TiXmlBase::IsWhiteSpaceCondensed()) { TiXmlBase::SetCondenseWhiteSpace(false); }
    ~blancsGardes() { TiXmlBase::SetCondenseWhiteSpace(avant); }
    blancsGardes(const blancsGardes&) = delete;
    blancsGardes& operator=(const blancsGardes&) = delete;

private:
    bool avant;
};

/// The library reads nested elements by recursion: a file may not nest them without end.
bool peuImbrique(const std::string& xml)
{
    constexpr int plusProfond = 100;
    int profondeur = 0;
    for (std::size_t i = 0; i + 1 < xml.size() && profondeur <= plusProfond; ++i) {
        const char c = xml[i], suivant = xml[i + 1];
        if (c == '<' && suivant != '!' && suivant != '?')
            profondeur += suivant == '/' ? -1 : 1;
        else if (c == '/' && suivant == '>')
            --profondeur;
    }
    return profondeur <= plusProfond;
}

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
CString sansMiseEnPage(const CString& texte)
{
    constexpr const wchar_t* blancs = L" \t\r\n";
    constexpr const wchar_t* finsDeLigne = L"\r\n";
    CString utile = texte;
    const CString debut = texte.SpanIncluding(blancs);
    if (debut.FindOneOf(finsDeLigne) >= 0)
        utile.TrimLeft(blancs);
    const CString sansFin = CString(utile).TrimRight(blancs);
    return utile.Mid(sansFin.GetLength()).FindOneOf(finsDeLigne) >= 0 ? sansFin : utile;
}

codifPoint codeDe(const TiXmlElement& element)
{
    codifPoint code;
    for (const champXml& champ : champs) {
        const TiXmlElement* const contenant = element.FirstChildElement(champ.element);
        const TiXmlNode* const premier = contenant ? contenant->FirstChild() : nullptr;
        const TiXmlText* const texte = premier ? premier->ToText() : nullptr;
        const CString valeur = texte ? sansMiseEnPage(depuisUtf8(texte->Value()).c_str()) : CString();
        if (!valeur.IsEmpty() || (contenant && (!premier || texte) && champ.vide == champVide::vider))
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
            contenant.InsertEndChild(texteXml(versUtf8(champ.ecrire(code).GetString())));
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
    if (!peuImbrique(octets))
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
