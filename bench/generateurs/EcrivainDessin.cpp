#include "generateurs/EcrivainDessin.h"

#include <cmath>

namespace {

/// Handles that every drawing of ours has; the others follow from premiereLibre on.
namespace fixe {
constexpr Poignee tableBlocs{0x1}, tableCalques{0x2}, tableStyles{0x3}, tableTypesDeLigne{0x5}, tableVues{0x6},
    tableScu{0x7}, tableFenetres{0x8}, tableApplications{0x9}, tableCotes{0xA};
constexpr Poignee racine{0xC}, groupes{0xD}, stylesTrace{0xE}, styleTrace{0xF}, calque0{0x10},
    dictionnaireCalque0{0x11};
constexpr Poignee stylesMulti{0x17}, styleMulti{0x18}, misesEnPage{0x19}, presentations{0x1A};
constexpr Poignee espacePapier{0x1B}, presentationPapier{0x1E}, espaceObjet{0x1F}, presentationObjet{0x22};
constexpr std::uint64_t premiereLibre = 0x40;
} // namespace fixe

} // namespace

EcrivainDessin::EcrivainDessin(SortieDxf& sortie, CadreDessin cadre) :
    m_sortie(sortie),
    m_cadre(std::move(cadre)),
    m_prochaine(fixe::premiereLibre),
    m_proprietaire(fixe::espaceObjet)
{
    m_cadre.calques.insert(m_cadre.calques.begin(), CalqueDxf{"0", 7, "Continuous"});
    for (std::size_t i = 0; i < m_cadre.blocs.size(); ++i)
        m_blocs.push_back(nouvelle());
}

Poignee EcrivainDessin::racine() const
{
    return fixe::racine;
}

Poignee EcrivainDessin::espaceObjet() const
{
    return fixe::espaceObjet;
}

Poignee EcrivainDessin::calque0() const
{
    return fixe::calque0;
}

Poignee EcrivainDessin::dictionnaireCalque0() const
{
    return fixe::dictionnaireCalque0;
}

void EcrivainDessin::debut()
{
    entete();
    classes();
    tables();
    blocs();
    m_sortie.tags(0, "SECTION", 2, "ENTITIES");
}

void EcrivainDessin::entete()
{
    const CadreDessin& c = m_cadre;
    m_sortie.tags(0, "SECTION", 2, "HEADER", 9, "$ACADVER", 1, c.version, 9, "$DWGCODEPAGE", 3, "ANSI_1252");
    m_sortie.tags(9, "$INSBASE", 10, 0.0, 20, 0.0, 30, 0.0);
    m_sortie.tags(9, "$EXTMIN", 10, c.xMin, 20, c.yMin, 30, 0.0, 9, "$EXTMAX", 10, c.xMax, 20, c.yMax, 30, c.zMax);
    m_sortie.tags(9, "$LTSCALE", 40, 1.0, 9, "$ATTMODE", 70, 1, 9, "$TEXTSIZE", 40, 1.0);
    m_sortie.tags(9, "$TEXTSTYLE", 7, "Standard", 9, "$CLAYER", 8, "0", 9, "$CELTYPE", 6, "ByLayer");
    // Decimal metres; grades, clockwise from north, as surveyors set a drawing up (the angle base stays in degrees).
    m_sortie.tags(9, "$LUNITS", 70, 2, 9, "$LUPREC", 70, 3, 9, "$AUNITS", 70, 2, 9, "$AUPREC", 70, 4);
    m_sortie.tags(9, "$ANGBASE", 50, 90.0, 9, "$ANGDIR", 70, 1, 9, "$PDMODE", 70, 3, 9, "$PDSIZE", 40, 0.5);
    m_sortie.tags(9, "$INSUNITS", 70, 6, 9, "$MEASUREMENT", 70, 1);
    if (!c.titre.empty())
        m_sortie.tags(9, "$PROJECTNAME", 1, c.titre);
    m_sortie.tags(9, "$HANDSEED", 5, static_cast<Poignee>(m_prochaine + c.poigneesReservees), 0, "ENDSEC");
}

void EcrivainDessin::classes()
{
    m_sortie.tags(0, "SECTION", 2, "CLASSES");
    std::vector<ClasseDxf> classes = {
        {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", "ObjectDBX Classes", false},
        {"ACDBPLACEHOLDER", "AcDbPlaceHolder", "ObjectDBX Classes", false},
        {"LAYOUT", "AcDbLayout", "ObjectDBX Classes", false},
    };
    classes.insert(classes.end(), m_cadre.classes.begin(), m_cadre.classes.end());
    for (const ClasseDxf& c : classes) {
        m_sortie.tags(0, "CLASS", 1, c.nom, 2, c.classeCpp, 3, c.application, 90, c.entite ? 1 : 0);
        if (m_cadre.version >= "AC1018")
            m_sortie.tag(91, 1);
        m_sortie.tags(280, 0, 281, c.entite ? 1 : 0);
    }
    m_sortie.tags(0, "ENDSEC");
}

void EcrivainDessin::debutTable(std::string_view nom, Poignee poignee, std::size_t nombre)
{
    m_sortie.tags(0, "TABLE", 2, nom, 5, poignee, 330, Poignee::aucune, 100, "AcDbSymbolTable");
    m_sortie.tag(70, static_cast<int>(nombre));
}

void EcrivainDessin::ligneTable(std::string_view type, std::string_view sousClasse, Poignee table, Poignee poignee)
{
    m_sortie.tags(0, type, type == "DIMSTYLE" ? 105 : 5, poignee, 330, table, 100, "AcDbSymbolTableRecord");
    m_sortie.tag(100, sousClasse);
}

void EcrivainDessin::tables()
{
    const CadreDessin& c = m_cadre;
    m_sortie.tags(0, "SECTION", 2, "TABLES");

    debutTable("VPORT", fixe::tableFenetres, 1);
    ligneTable("VPORT", "AcDbViewportTableRecord", fixe::tableFenetres, nouvelle());
    m_sortie.tags(2, "*Active", 70, 0, 10, 0.0, 20, 0.0, 11, 1.0, 21, 1.0);
    m_sortie.tags(12, (c.xMin + c.xMax) / 2, 22, (c.yMin + c.yMax) / 2, 13, 0.0, 23, 0.0, 14, 1.0, 24, 1.0);
    m_sortie.tags(15, 1.0, 25, 1.0, 16, 0.0, 26, 0.0, 36, 1.0, 17, 0.0, 27, 0.0, 37, 0.0);
    m_sortie.tags(40, c.yMax - c.yMin, 41, 1.5, 42, 50.0, 43, 0.0, 44, 0.0, 50, 0.0, 51, 0.0);
    m_sortie.tags(71, 0, 72, 1000, 73, 1, 74, 3, 75, 0, 76, 0, 77, 0, 78, 0, 0, "ENDTAB");

    tableTypesDeLigne();
    tableCalques();

    debutTable("STYLE", fixe::tableStyles, c.styles.size() + 1);
    std::vector<std::string> styles = c.styles;
    styles.insert(styles.begin(), "Standard");
    for (const std::string& style : styles) {
        ligneTable("STYLE", "AcDbTextStyleTableRecord", fixe::tableStyles, nouvelle());
        m_sortie.tags(2, style, 70, 0, 40, 0.0, 41, 1.0, 50, 0.0, 71, 0, 42, 1.0);
        m_sortie.tags(3, style == "Standard" ? "txt" : "arial.ttf", 4, "");
    }
    m_sortie.tags(0, "ENDTAB");

    debutTable("VIEW", fixe::tableVues, 0);
    m_sortie.tags(0, "ENDTAB");
    debutTable("UCS", fixe::tableScu, 0);
    m_sortie.tags(0, "ENDTAB");

    debutTable("APPID", fixe::tableApplications, c.applications.size() + 1);
    std::vector<std::string> applications = c.applications;
    applications.insert(applications.begin(), "ACAD");
    for (const std::string& application : applications) {
        ligneTable("APPID", "AcDbRegAppTableRecord", fixe::tableApplications, nouvelle());
        m_sortie.tags(2, application, 70, 0);
    }
    m_sortie.tags(0, "ENDTAB");

    debutTable("DIMSTYLE", fixe::tableCotes, 1);
    m_sortie.tags(100, "AcDbDimStyleTable", 71, 0);
    ligneTable("DIMSTYLE", "AcDbDimStyleTableRecord", fixe::tableCotes, nouvelle());
    m_sortie.tags(2, "Standard", 70, 0, 41, 1.0, 42, 0.5, 44, 0.5, 140, 1.0, 147, 0.5, 271, 2, 277, 2, 0, "ENDTAB");

    tableBlocs();
    m_sortie.tags(0, "ENDSEC");
}

void EcrivainDessin::tableTypesDeLigne()
{
    std::vector<TypeDeLigneDxf> types = {{"ByBlock", "", {}}, {"ByLayer", "", {}}, {"Continuous", "Solid line", {}}};
    types.insert(types.end(), m_cadre.typesDeLigne.begin(), m_cadre.typesDeLigne.end());
    debutTable("LTYPE", fixe::tableTypesDeLigne, types.size());
    for (const TypeDeLigneDxf& type : types) {
        double longueur = 0.0;
        for (const double tiret : type.tirets)
            longueur += std::abs(tiret);
        ligneTable("LTYPE", "AcDbLinetypeTableRecord", fixe::tableTypesDeLigne, nouvelle());
        m_sortie.tags(2, type.nom, 70, 0, 3, type.description, 72, 65);
        m_sortie.tags(73, static_cast<int>(type.tirets.size()), 40, longueur);
        for (const double tiret : type.tirets)
            m_sortie.tags(49, tiret, 74, 0);
    }
    m_sortie.tags(0, "ENDTAB");
}

void EcrivainDessin::tableCalques()
{
    debutTable("LAYER", fixe::tableCalques, m_cadre.calques.size());
    for (const CalqueDxf& calque : m_cadre.calques) {
        const bool zero = calque.nom == "0";
        m_sortie.tags(0, "LAYER", 5, zero ? fixe::calque0 : nouvelle());
        if (zero && m_cadre.dictionnaireCalque0)
            m_sortie.tags(102, "{ACAD_XDICTIONARY", 360, fixe::dictionnaireCalque0, 102, "}");
        m_sortie.tags(330, fixe::tableCalques, 100, "AcDbSymbolTableRecord", 100, "AcDbLayerTableRecord");
        m_sortie.tags(2, calque.nom, 70, 0, 62, calque.couleur, 6, calque.typeDeLigne, 370, -3, 390, fixe::styleTrace);
    }
    m_sortie.tags(0, "ENDTAB");
}

void EcrivainDessin::tableBlocs()
{
    debutTable("BLOCK_RECORD", fixe::tableBlocs, m_cadre.blocs.size() + 2);
    const auto enregistrement = [this](std::string_view nom, Poignee poignee, Poignee presentation) {
        ligneTable("BLOCK_RECORD", "AcDbBlockTableRecord", fixe::tableBlocs, poignee);
        m_sortie.tags(2, nom, 340, presentation);
        if (m_cadre.version >= "AC1021")
            m_sortie.tags(70, 0, 280, 1, 281, 0);
    };
    enregistrement("*Model_Space", fixe::espaceObjet, fixe::presentationObjet);
    enregistrement("*Paper_Space", fixe::espacePapier, fixe::presentationPapier);
    for (std::size_t i = 0; i < m_blocs.size(); ++i)
        enregistrement(m_cadre.blocs[i].nom, m_blocs[i], Poignee::aucune);
    m_sortie.tags(0, "ENDTAB");
}

void EcrivainDessin::blocs()
{
    m_sortie.tags(0, "SECTION", 2, "BLOCKS");
    bloc("*Model_Space", fixe::espaceObjet, nullptr);
    bloc("*Paper_Space", fixe::espacePapier, nullptr);
    for (std::size_t i = 0; i < m_blocs.size(); ++i)
        bloc(m_cadre.blocs[i].nom, m_blocs[i], &m_cadre.blocs[i]);
    m_proprietaire = fixe::espaceObjet;
    m_sortie.tags(0, "ENDSEC");
}

void EcrivainDessin::bloc(const std::string& nom, Poignee enregistrement, const BlocDxf* definition)
{
    m_proprietaire = enregistrement;
    entite("BLOCK", "0", "AcDbBlockBegin");
    m_sortie.tags(2, nom, 70, definition && definition->attributs ? 2 : 0, 10, 0.0, 20, 0.0, 30, 0.0, 3, nom, 1, "");
    if (definition && definition->contenu)
        definition->contenu(*this);
    entite("ENDBLK", "0", "AcDbBlockEnd");
}

Poignee EcrivainDessin::entite(std::string_view type, std::string_view calque, std::string_view sousClasse)
{
    return sousEntite(type, m_proprietaire, calque, {sousClasse});
}

Poignee EcrivainDessin::sousEntite(std::string_view type, Poignee proprietaire, std::string_view calque,
                                   std::initializer_list<std::string_view> sousClasses)
{
    const Poignee poignee = nouvelle();
    m_sortie.tags(0, type, 5, poignee, 330, proprietaire, 100, "AcDbEntity", 8, calque);
    for (const std::string_view sousClasse : sousClasses)
        m_sortie.tag(100, sousClasse);
    return poignee;
}

void EcrivainDessin::dictionnaire(Poignee poignee, Poignee proprietaire, const Entrees& entrees, bool possede)
{
    m_sortie.tags(0, "DICTIONARY", 5, poignee, 330, proprietaire, 100, "AcDbDictionary");
    if (possede)
        m_sortie.tag(280, 1);
    m_sortie.tag(281, 1);
    for (const auto& [cle, objet] : entrees)
        m_sortie.tags(3, cle, possede ? 360 : 350, objet);
}

void EcrivainDessin::objets(const Entrees& dansRacine)
{
    m_sortie.tags(0, "ENDSEC", 0, "SECTION", 2, "OBJECTS");
    Entrees racine = {
        {"ACAD_GROUP", fixe::groupes},
        {"ACAD_LAYOUT", fixe::presentations},
        {"ACAD_MLINESTYLE", fixe::stylesMulti},
        {"ACAD_PLOTSETTINGS", fixe::misesEnPage},
        {"ACAD_PLOTSTYLENAME", fixe::stylesTrace},
    };
    racine.insert(racine.end(), dansRacine.begin(), dansRacine.end());
    dictionnaire(fixe::racine, Poignee::aucune, racine, false);
    dictionnaire(fixe::groupes, fixe::racine, {}, false);
    dictionnaire(fixe::misesEnPage, fixe::racine, {}, false);
    dictionnaire(fixe::stylesMulti, fixe::racine, {{"Standard", fixe::styleMulti}}, false);
    dictionnaire(fixe::presentations, fixe::racine,
                 {{"Model", fixe::presentationObjet}, {"Présentation1", fixe::presentationPapier}}, false);

    m_sortie.tags(0, "ACDBDICTIONARYWDFLT", 5, fixe::stylesTrace, 330, fixe::racine, 100, "AcDbDictionary", 281, 1);
    m_sortie.tags(3, "Normal", 350, fixe::styleTrace, 100, "AcDbDictionaryWithDefault", 340, fixe::styleTrace);
    m_sortie.tags(0, "ACDBPLACEHOLDER", 5, fixe::styleTrace, 330, fixe::stylesTrace);
    m_sortie.tags(0, "MLINESTYLE", 5, fixe::styleMulti, 330, fixe::stylesMulti, 100, "AcDbMlineStyle", 2, "Standard");
    m_sortie.tags(70, 0, 3, "", 62, 256, 51, 90.0, 52, 90.0, 71, 2);
    m_sortie.tags(49, 0.5, 62, 256, 6, "BYLAYER", 49, -0.5, 62, 256, 6, "BYLAYER");
    presentation("Model", fixe::presentationObjet, 0, fixe::espaceObjet);
    presentation("Présentation1", fixe::presentationPapier, 1, fixe::espacePapier);
}

void EcrivainDessin::presentation(std::string_view nom, Poignee poignee, int ordre, Poignee enregistrement)
{
    m_sortie.tags(0, "LAYOUT", 5, poignee, 330, fixe::presentations, 100, "AcDbPlotSettings", 1, "", 2, "none_device");
    m_sortie.tags(4, "", 6, "", 40, 0.0, 41, 0.0, 42, 0.0, 43, 0.0, 44, 420.0, 45, 297.0, 46, 0.0, 47, 0.0, 48, 0.0);
    m_sortie.tags(49, 0.0, 140, 0.0, 141, 0.0, 142, 1.0, 143, 1.0, 70, ordre == 0 ? 1024 : 0, 72, 1, 73, 0, 74, 5);
    m_sortie.tags(7, "", 75, 16, 147, 1.0, 148, 0.0, 149, 0.0, 100, "AcDbLayout", 1, nom, 70, 1, 71, ordre);
    m_sortie.tags(10, 0.0, 20, 0.0, 11, 420.0, 21, 297.0, 12, 0.0, 22, 0.0, 32, 0.0);
    m_sortie.tags(14, 0.0, 24, 0.0, 34, 0.0, 15, 0.0, 25, 0.0, 35, 0.0, 146, 0.0, 13, 0.0, 23, 0.0, 33, 0.0);
    m_sortie.tags(16, 1.0, 26, 0.0, 36, 0.0, 17, 0.0, 27, 1.0, 37, 0.0, 76, 0, 330, enregistrement);
}

void EcrivainDessin::fin()
{
    m_sortie.tags(0, "ENDSEC", 0, "EOF");
    m_sortie.fermer();
}
