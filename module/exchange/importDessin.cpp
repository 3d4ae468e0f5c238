#include "exchange/importDessin.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "codification/attributsBloc.h"
#include "codification/codificationDuModule.h"
#include "codification/regleCode.h"
#include "exchange/selectionGenres.h"
#include "points/attribsPoints.h"
#include "points/listePointsDuDessin.h"
#include "services/CAcadUndoGroup.h"
#include "services/entierDeTexte.h"
#include "services/lettres.h"
#include "services/lireNombre.h"

#include "acutmem.h"
#include "dbents.h"
#include "dbmtext.h"

std::array<int, 12> codesImportation{9999, 9998, 9997, 9996, 9995, 9994, 9993, 9992, 9991, 9990, 9989, 9988};

namespace {

/// Places in the table of codes.
enum rangCode {
    rangPolyligne3d,
    rangAnciennePolyligne,
    rangPoint,
    rangMaillage,
    rangPolyface,
    rangFacette,
    rangLigne,
    rangPolyligne,
    rangSymbole,
    rangBloc,
    rangBlocAttributs,
    rangTexte
};

constexpr std::array<const wchar_t*, 12> libelles{
    L"Sommets importes a partir de polylines 3d",
    L"Sommets importes a partir de Polylines 2d",
    L"Sommets importes a partir des points Autocad",
    L"Sommets importes a partir de 3dMesh",
    L"Sommets importes a partir de PolyfaceMesh",
    L"Sommets importes a partir des facettes ",
    L"Sommets importes a partir des lignes",
    L"Sommets importes a partir des polylines",
    L"Points importes a partir des blocs",
    L"Sommets importes a partir des Blocks en 3D",
    L"Points importes a partir des blocs avec attributs",
    L"Sommets importes a partir des Textes",
};

// Intended: vertices of lightweight polylines bear the code of 3D ones, whatever the table of codes says, while their
// label is entered under their own.
constexpr int codeSommetPolyligne = 9999;

void inscrireCode(int numero, const wchar_t* libelle)
{
    tableCodification& codes = codificationDuModule();
    if (codes.indexCode(numero) >= 0)
        return;
    codifPoint code;
    code.code = numero;
    code.libelle = libelle;
    codes.ajouter(code);
}

/// The text of an attribute by its tag; null without it.
class attributsLus {
public:
    explicit attributsLus(const AcDbBlockReference& reference)
    {
        pourChaqueAttribut(reference, AcDb::kForRead, [this](AcDbAttribute& attribut) {
            m_lus.emplace_back(attribut.tagConst(), attribut.textStringConst());
        });
    }

    const std::wstring* texte(std::wstring_view tag) const
    {
        for (const auto& [nom, valeur] : m_lus)
            if (memesLettres(nom, tag))
                return &valeur;
        return nullptr;
    }

private:
    std::vector<std::pair<std::wstring, std::wstring>> m_lus;
};

double altitudeDe(const std::wstring& texte)
{
    double z = inconnu;
    return lireNombre(texte.c_str(), z) ? z : inconnu;
}

/// What is visible of a multi-line text, without the line breaks at its end.
std::wstring texteVisible(const AcDbMText& texte)
{
    std::wstring visible;
    if (ACHAR* lu = texte.text()) {
        visible = lu;
        acutDelString(lu);
    }
    return visible.substr(0, visible.find_last_not_of(L"\r\n") + 1);
}

/// One run over the entities of a selection.
class releve {
public:
    releve(listePointsDuDessin& table, const demandeImportation& demande) : m_table(table), m_demande(demande) {}

    void prendre(const AcDbObjectId& id)
    {
        const AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForRead);
        if (entite.openStatus() != Acad::eOk)
            return;
        if (const preneur prend = preneurDe(entite->isA()))
            (this->*prend)(*entite.object());
    }

private:
    using preneur = void (releve::*)(const AcDbEntity&);

    /// What takes entities of a class, found once for all of them; null: nothing does.
    preneur preneurDe(const AcRxClass* classe)
    {
        if (classe == m_classe)
            return m_preneur;
        const auto [connu, premier] = m_preneurs.try_emplace(classe, nullptr);
        if (premier)
            connu->second = premierPreneur(*classe);
        m_classe = classe;
        return m_preneur = connu->second;
    }

    /// The first of the kinds, in their order, that the class is of.
    static preneur premierPreneur(const AcRxClass& classe)
    {
        const std::pair<const AcRxClass*, preneur> genres[] = {
            {AcDb2dPolyline::desc(), &releve::sommetsAnciens},
            {AcDbPolyFaceMesh::desc(), &releve::sommets<AcDbPolyFaceMesh, AcDbPolyFaceMeshVertex, rangPolyface>},
            {AcDb3dPolyline::desc(), &releve::sommets<AcDb3dPolyline, AcDb3dPolylineVertex, rangPolyligne3d>},
            {AcDbPolygonMesh::desc(), &releve::sommets<AcDbPolygonMesh, AcDbPolygonMeshVertex, rangMaillage>},
            {AcDbBlockReference::desc(), &releve::prendreBloc},
            {AcDbPoint::desc(), &releve::prendrePoint},
            {AcDbFace::desc(), &releve::coins},
            {AcDbLine::desc(), &releve::bouts},
            {AcDbPolyline::desc(), &releve::sommetsLegers},
            {AcDbText::desc(), &releve::prendreTexte},
            {AcDbMText::desc(), &releve::prendreParagraphe}};
        for (const auto& [genre, prend] : genres)
            if (classe.isDerivedFrom(genre))
                return prend;
        return nullptr;
    }

    bool voulu(int genre) const { return (m_demande.genres & genre) != 0; }

    /// The code of a kind is entered when its first point is made.
    int codeDuGenre(rangCode rang)
    {
        const auto i = static_cast<std::size_t>(rang);
        if (!m_inscrits[i])
            inscrireCode(codesImportation[i], libelles[i]);
        m_inscrits[i] = true;
        return rang == rangPolyligne ? codeSommetPolyligne : codesImportation[i];
    }

    /// What lies at altitude zero was drawn flat: it is no survey.
    void poser(const AcGePoint3d& position, rangCode rang)
    {
        if (position.z != 0.0)
            m_table.CreerPoint(position, codeDuGenre(rang), nullptr);
    }

    void prendrePoint(const AcDbEntity& entite) { poser(static_cast<const AcDbPoint&>(entite).position(), rangPoint); }

    void bouts(const AcDbEntity& entite)
    {
        const auto& ligne = static_cast<const AcDbLine&>(entite);
        poser(ligne.startPoint(), rangLigne);
        poser(ligne.endPoint(), rangLigne);
    }

    template <class Porteur, class Sommet, rangCode rang>
    void sommets(const AcDbEntity& entite)
    {
        const std::unique_ptr<AcDbObjectIterator> it(static_cast<const Porteur&>(entite).vertexIterator());
        for (it->start(); !it->done(); it->step()) {
            const AcDbObjectPointer<AcDbVertex> sommet(it->objectId(), AcDb::kForRead);
            if (sommet.openStatus() == Acad::eOk && Sommet::cast(sommet.object()))
                poser(sommet->position(), rang);
        }
    }

    void sommetsAnciens(const AcDbEntity& entite)
    {
        const auto& polyligne = static_cast<const AcDb2dPolyline&>(entite);
        const std::unique_ptr<AcDbObjectIterator> it(polyligne.vertexIterator());
        for (it->start(); !it->done(); it->step()) {
            const AcDbObjectPointer<AcDb2dVertex> sommet(it->objectId(), AcDb::kForRead);
            if (sommet.openStatus() == Acad::eOk && sommet->vertexType() != AcDb::k2dSplineCtlVertex)
                poser(polyligne.vertexPosition(*sommet.object()), rangAnciennePolyligne);
        }
    }

    void sommetsLegers(const AcDbEntity& entite)
    {
        const auto& polyligne = static_cast<const AcDbPolyline&>(entite);
        AcGePoint3d sommet;
        for (unsigned int i = 0; i < polyligne.numVerts(); ++i)
            if (polyligne.getPointAt(i, sommet) == Acad::eOk)
                poser(sommet, rangPolyligne);
    }

    void coins(const AcDbEntity& entite)
    {
        const auto& face = static_cast<const AcDbFace&>(entite);
        constexpr Adesk::UInt16 nombre = 4;
        AcGePoint3d coin;
        for (Adesk::UInt16 i = 0; i < nombre; ++i)
            if (face.getVertexAt(i, coin) == Acad::eOk)
                poser(coin, rangFacette);
    }

    void prendreBloc(const AcDbEntity& entite)
    {
        const auto& bloc = static_cast<const AcDbBlockReference&>(entite);
        const AcGePoint3d place = bloc.position();
        if (voulu(genreSymbole | genreBlocAttributs)) {
            const attributsLus attributs(bloc);
            if (voulu(genreSymbole) && prendreSymbole(bloc.objectId(), place, attributs))
                return;
            if (voulu(genreBlocAttributs) && prendreAttributs(place, attributs))
                return;
        }
        if (!voulu(genreBloc) || place.z == 0.0)
            return;
        pointDuDessin point;
        point.setParams(L"", place, codeDuGenre(rangBloc));
        m_table.Ajouter(point);
    }

    /// A symbol that tells no code has that of the symbol before it.
    bool prendreSymbole(const AcDbObjectId& id, const AcGePoint3d& place, const attributsLus& attributs)
    {
        const std::wstring* const nom = attributs.texte(attribsDuModule.numero.GetString());
        const std::wstring* const altitude = attributs.texte(attribsDuModule.altitude.GetString());
        if (!nom || !altitude)
            return false;
        if (const std::wstring* const code = attributs.texte(attribsDuModule.code.GetString()))
            m_codeSymbole = entierDeTexte(*code);
        const auto rang = static_cast<std::size_t>(rangSymbole);
        if (!codeValable(m_codeSymbole))
            m_codeSymbole = codesImportation[rang];
        if (!m_inscrits[rang])
            inscrireCode(m_codeSymbole, libelles[rang]);
        m_inscrits[rang] = true;
        pointDuDessin point;
        point.setParams(nom->c_str(), {place.x, place.y, altitudeDe(*altitude)}, m_codeSymbole);
        point.setId(id);
        m_table.Ajouter(point);
        return true;
    }

    bool prendreAttributs(const AcGePoint3d& place, const attributsLus& attributs)
    {
        const std::wstring* const nom = attributs.texte(m_demande.tagNumero);
        const std::wstring* const altitude = attributs.texte(m_demande.tagAltitude);
        if (!nom || !altitude)
            return false;
        const std::wstring* const texteCode = attributs.texte(m_demande.tagCode);
        int code = texteCode ? entierDeTexte(*texteCode) : 0;
        if (code != 0)
            inscrireCode(code, L"Import Code");
        else
            code = codeDuGenre(rangBlocAttributs);
        m_table.CreerPoint({place.x, place.y, altitudeDe(*altitude)}, code, nom->c_str());
        return true;
    }

    void prendreTexte(const AcDbEntity& entite)
    {
        const auto& texte = static_cast<const AcDbText&>(entite);
        double z = 0.0;
        const AcGePoint3d place = texte.position();
        if (lireNombre(texte.textStringConst(), z))
            poser({place.x + m_demande.decalage.x, place.y + m_demande.decalage.y, z}, rangTexte);
    }

    // Intended: the offset is that of single-line texts alone.
    void prendreParagraphe(const AcDbEntity& entite)
    {
        const auto& texte = static_cast<const AcDbMText&>(entite);
        double z = 0.0;
        AcDbExtents etendue;
        if (lireNombre(texteVisible(texte).c_str(), z) && z != 0.0 && texte.getGeomExtents(etendue) == Acad::eOk)
            poser({etendue.minPoint().x, etendue.minPoint().y, z}, rangTexte);
    }

    listePointsDuDessin& m_table;
    const demandeImportation& m_demande;
    std::array<bool, 12> m_inscrits{};
    int m_codeSymbole = codesImportation[rangSymbole];
    std::unordered_map<const AcRxClass*, preneur> m_preneurs;
    const AcRxClass* m_classe = nullptr; // the last one: neighbours in a drawing are mostly of one kind
    preneur m_preneur = nullptr;
};

} // namespace

void listePointsDuDessin::importFromDrawing(int genres, const wchar_t* tagNumero, const wchar_t* tagAltitude,
                                            const wchar_t* tagCode, const AcGeVector2d& decalage)
{
    const auto texte = [](const wchar_t* tag) { return std::wstring(tag ? tag : L""); };
    releverEntites(*this, {genres, texte(tagNumero), texte(tagAltitude), texte(tagCode), decalage});
}

void releverEntites(listePointsDuDessin& table, const demandeImportation& demande)
{
    const std::vector<AcDbObjectId> choisies = selectionnerGenres(demande.genres);
    if (choisies.empty())
        return;
    const CAcadUndoGroup groupe;
    releve run(table, demande);
    for (const AcDbObjectId& id : choisies)
        run.prendre(id);
    table.delDups();
    table.renumeroter(false);
}
