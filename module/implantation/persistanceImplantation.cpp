#include "implantation/persistanceImplantation.h"

#include <algorithm>
#include <unordered_map>

#include "implantation/entitesImplantation.h"
#include "implantation/travailImplantation.h"
#include "services/chaineResbuf.h"

#include "acdb.h"
#include "aced.h"
#include "dbdict.h"
#include "dbxrecrd.h"

namespace {

constexpr int formeEcrite = 2; // of the layout below; 1 kept neither why a sight is not checked nor ground that lacks

/// Writes items of three kinds: whole numbers, reals, texts.
class ecriture {
public:
    void entier(int valeur) { m_chaine.ajouter(AcDb::kDxfInt32, valeur); }
    void reel(double valeur) { m_chaine.ajouter(AcDb::kDxfReal, valeur); }
    void texte(const std::wstring& valeur) { m_chaine.ajouter(AcDb::kDxfText, valeur.c_str()); }
    void lieu(const lieuNomme& l)
    {
        texte(l.nom);
        for (const double valeur : {l.x, l.y, l.z})
            reel(valeur);
    }
    const resbuf* chaine() const { return m_chaine.tete(); }

private:
    chaineResbuf m_chaine;
};

/// Reads them back; after an item of another kind everything is zero or empty, and `bon` is false.
class lecture {
public:
    explicit lecture(const resbuf* chaine) : m_suivant(chaine) {}

    bool bon() const { return m_bon; }
    bool fini() const { return m_suivant == nullptr; }
    int entier()
    {
        const resbuf* const item = prendre(AcDb::kDxfInt32);
        return item ? static_cast<int>(item->resval.rlong) : 0;
    }
    double reel()
    {
        const resbuf* const item = prendre(AcDb::kDxfReal);
        return item ? item->resval.rreal : 0.0;
    }
    std::wstring texte()
    {
        const resbuf* const item = prendre(AcDb::kDxfText);
        return item && item->resval.rstring ? item->resval.rstring : L"";
    }
    lieuNomme lieu()
    {
        lieuNomme l;
        l.nom = texte();
        l.x = reel();
        l.y = reel();
        l.z = reel();
        return l;
    }
    /// A number of things to follow, of one item each at least.
    std::size_t nombre()
    {
        const int n = entier();
        std::size_t restants = 0;
        for (const resbuf* item = m_suivant; item && restants <= static_cast<std::size_t>(std::max(n, 0));
             item = item->rbnext)
            ++restants;
        m_bon = m_bon && n >= 0 && static_cast<std::size_t>(n) <= restants;
        return m_bon ? static_cast<std::size_t>(n) : 0;
    }

private:
    const resbuf* prendre(int type)
    {
        m_bon = m_bon && m_suivant && m_suivant->restype == type;
        if (!m_bon)
            return nullptr;
        const resbuf* const item = m_suivant;
        m_suivant = item->rbnext;
        return item;
    }

    const resbuf* m_suivant;
    bool m_bon = true;
};

void ecrireStation(const observationMiseEnStation& s, ecriture& e)
{
    const donneesStation d = s.donnees();
    e.entier(s.typeCode());
    e.lieu(d.station);
    e.reel(d.v0);
    e.lieu(d.reference);
}

std::unique_ptr<observationMiseEnStation> lireStation(lecture& l)
{
    const int type = l.entier();
    const lieuNomme station = l.lieu();
    const double v0 = l.reel();
    const lieuNomme reference = l.lieu();
    if (type == 10)
        return std::make_unique<observationMiseEnStationOrientee>(station, v0);
    return std::make_unique<observationMiseEnStationVisee>(station, reference);
}

void ecrirePoint(const pointDuTravail& p, int station, ecriture& e)
{
    e.lieu(p);
    e.entier(station);
    e.entier(p.verifie);
    e.reel(p.hauteurVisible);
    e.texte(p.cause);
    e.reel(p.sansSol);
    e.entier(p.pire.has_value());
    if (!p.pire)
        return;
    const obstruction& o = *p.pire;
    for (const double valeur : {o.hauteur, o.depassement, o.distance, o.place.x, o.place.y, o.place.z})
        e.reel(valeur);
}

pointDuTravail lirePoint(const std::vector<std::unique_ptr<observationMiseEnStation>>& stations, int forme, lecture& l)
{
    pointDuTravail p;
    static_cast<lieuNomme&>(p) = l.lieu();
    p.identifiant = nouvelIdentifiant();
    const int rang = l.entier();
    if (rang >= 0 && static_cast<std::size_t>(rang) < stations.size())
        p.station = stations[static_cast<std::size_t>(rang)]->identifiant;
    p.verifie = l.entier() != 0;
    p.hauteurVisible = l.reel();
    if (forme > 1) {
        p.cause = l.texte();
        p.sansSol = l.reel();
    }
    if (l.entier() == 0)
        return p;
    if (forme == 1)
        p.cause = l.texte();
    obstruction o;
    for (double* const valeur : {&o.hauteur, &o.depassement, &o.distance, &o.place.x, &o.place.y, &o.place.z})
        *valeur = l.reel();
    p.pire = o;
    return p;
}

void ecrireOptions(const travailImplantation& t, ecriture& e)
{
    const optionsImplantation& o = t.options;
    for (const int mot : {o.grouper, int{o.stations}, int{o.implantations}, int{o.numeros}, int{o.textes},
                          int{o.coordonnees}, int{t.verifier}})
        e.entier(mot);
    e.reel(t.hauteurStation);
    e.texte(t.numerotation.prefixe);
    e.entier(t.numerotation.numero);
    e.texte(t.numerotation.suffixe);
}

/// What was read, to be taken only when all of it could be.
struct lu {
    optionsImplantation options;
    bool verifier = true;
    double hauteurStation = 0.0;
    numerotationImplantation numerotation;
    std::vector<std::unique_ptr<observationMiseEnStation>> stations;
    std::vector<pointDuTravail> points;
};

void lireOptions(lu& t, lecture& l)
{
    optionsImplantation& o = t.options;
    o.grouper = l.entier();
    for (bool* const mot : {&o.stations, &o.implantations, &o.numeros, &o.textes, &o.coordonnees, &t.verifier})
        *mot = l.entier() != 0;
    t.hauteurStation = l.reel();
    t.numerotation.prefixe = l.texte();
    t.numerotation.numero = std::clamp(l.entier(), 0, numerotationImplantation::plusGrandNumero);
    t.numerotation.suffixe = l.texte();
}

bool lire(const resbuf* chaine, travailImplantation& travail)
{
    lecture l(chaine);
    const int forme = l.entier();
    if (forme < 1 || forme > formeEcrite)
        return false;
    lu tout;
    lireOptions(tout, l);
    for (std::size_t n = l.nombre(); n > 0 && l.bon(); --n)
        tout.stations.push_back(lireStation(l));
    for (std::size_t n = l.nombre(); n > 0 && l.bon(); --n)
        tout.points.push_back(lirePoint(tout.stations, forme, l));
    if (!l.bon() || !l.fini())
        return false;
    travail.options = tout.options;
    travail.verifier = tout.verifier;
    travail.hauteurStation = tout.hauteurStation;
    travail.numerotation = tout.numerotation;
    travail.stations = std::move(tout.stations);
    travail.points = std::move(tout.points);
    return true;
}

AcDbObjectId dictionnaireDe(const AcDbDatabase& dessin)
{
    return dessin.namedObjectsDictionaryId();
}

/// The record, made when it is missing; null when it cannot be.
AcDbObjectId enregistrementPourEcrire(AcDbDatabase& dessin)
{
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(dictionnaireDe(dessin), AcDb::kForWrite);
    AcDbObjectId id;
    if (dictionnaire.openStatus() != Acad::eOk || dictionnaire->getAt(applicationImplantation, id) == Acad::eOk)
        return id;
    auto neuf = std::make_unique<AcDbXrecord>();
    if (dictionnaire->setAt(applicationImplantation, neuf.get(), id) == Acad::eOk)
        neuf.release()->close();
    return id;
}

bool dejaGarde(const AcDbDatabase& dessin)
{
    const AcDbObjectPointer<AcDbDictionary> dictionnaire(dictionnaireDe(dessin));
    return dictionnaire.openStatus() == Acad::eOk && dictionnaire->has(applicationImplantation);
}

} // namespace

bool reprendreTravail(const AcDbDatabase& dessin, travailImplantation& travail)
{
    chaineResbuf chaine;
    {
        const AcDbObjectPointer<AcDbDictionary> dictionnaire(dictionnaireDe(dessin));
        AcDbObjectId id;
        if (dictionnaire.openStatus() != Acad::eOk || dictionnaire->getAt(applicationImplantation, id) != Acad::eOk)
            return false;
        const AcDbObjectPointer<AcDbXrecord> enregistrement(id);
        resbuf* lue = nullptr;
        if (enregistrement.openStatus() != Acad::eOk || enregistrement->rbChain(&lue) != Acad::eOk || !lue)
            return false;
        chaine.prendre(lue);
    }
    if (lire(chaine.tete(), travail))
        return true;
    acutPrintf(
        L"\nL'implantation gard\u00e9e dans le dessin est illisible : un travail neuf commence, l'ancienne reste "
        L"jusqu'\u00e0 ce qu'il soit gard\u00e9");
    return false;
}

bool garderTravail(AcDbDatabase& dessin, const travailImplantation& travail)
{
    if (travail.points.empty() && !dejaGarde(dessin))
        return true;
    ecriture e;
    e.entier(formeEcrite);
    ecrireOptions(travail, e);
    std::unordered_map<identifiantImplantation, int> rangs;
    e.entier(static_cast<int>(travail.stations.size()));
    for (const auto& station : travail.stations) { // those without points too: points may be spread over them
        rangs.emplace(station->identifiant, static_cast<int>(rangs.size()));
        ecrireStation(*station, e);
    }
    e.entier(static_cast<int>(travail.points.size()));
    for (const pointDuTravail& p : travail.points) {
        const auto rang = rangs.find(p.station);
        ecrirePoint(p, rang == rangs.end() ? -1 : rang->second, e);
    }
    const AcDbObjectPointer<AcDbXrecord> enregistrement(enregistrementPourEcrire(dessin), AcDb::kForWrite);
    return enregistrement.openStatus() == Acad::eOk && enregistrement->setFromRbChain(*e.chaine()) == Acad::eOk;
}
