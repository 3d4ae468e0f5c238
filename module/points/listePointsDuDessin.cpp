#include "points/listePointsDuDessin.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>
#include <utility>

#include "points/entiteDuPoint.h"
#include "points/memoireTable.h"
#include "points/pointsDistincts.h"
#include "points/QuarvelSerializer.h"
#include "services/calqueVerrouille.h"
#include "services/lettres.h"

namespace {

// Intended: names are looked up and added without their spaces, but indexed anew without their tabs as well. A name
// with tabs is found until the first rebuild only; drawings in use behave so.
constexpr std::string_view blancsRecherche = " ";
constexpr std::string_view blancsReindexation = " \t";

/// A name made of these only stands for a point without name.
constexpr std::string_view marquesSansNom = " *.";

constexpr double tolerancePosition = 0.000001;

/// The whole number at the beginning of a name, after blanks and a sign; 0 when there is none. Nine characters always
/// fit in 32 bits.
int numeroDe(std::string_view nom)
{
    const std::size_t debut = nom.find_first_not_of(" \t\n\v\f\r");
    if (debut == std::string_view::npos)
        return 0;
    nom.remove_prefix(debut);
    if (nom.front() == '+')
        nom.remove_prefix(1);
    int numero = 0;
    std::from_chars(nom.data(), nom.data() + nom.size(), numero);
    return numero;
}

void nommer(pointDuDessin& point, int numero)
{
    std::array<char, 12> texte{};
    std::to_chars(texte.data(), texte.data() + texte.size() - 1, numero);
    point.setNomPoint(texte.data());
}

} // namespace

listePointsDuDessin::listePointsDuDessin() = default;
listePointsDuDessin::~listePointsDuDessin() = default;

pointDuDessin* listePointsDuDessin::getData(int i)
{
    pointDuDessin& point = points.GetAt(i);
    indexerEnAttente(); // under the names that the points have now
    objets.suspecter(i);
    if (memoire)
        memoire->confier(i);
    return &point;
}

listePointsDuDessin::tableau& listePointsDuDessin::getData()
{
    indexerEnAttente();
    objets.suspecterTout();
    if (memoire)
        memoire->confierTout();
    return points;
}

void listePointsDuDessin::Ajouter(const pointDuDessin& point)
{
    if (memoire)
        memoire->avantDAjouter();
    oublierNomsPartis();
    if (blancsEnAttente != blancs::espaces) {
        indexerEnAttente();
        blancsEnAttente = blancs::espaces;
    }
    points.Add(point);
}

/// The point at a position, about to change.
pointDuDessin& listePointsDuDessin::changer(int i)
{
    pointDuDessin& point = points.GetAt(i);
    if (memoire)
        memoire->avantDeChanger(i);
    return point;
}

void listePointsDuDessin::remplacerTout(std::span<const pointDuDessin> nouveaux)
{
    changerTout();
    points.RemoveAll();
    reindexer();
    objets.suspecterTout();
    for (const pointDuDessin& point : nouveaux)
        Ajouter(point);
}

/// Any point is about to change, or to go.
void listePointsDuDessin::changerTout()
{
    if (memoire)
        memoire->avantDeToutChanger();
}

void listePointsDuDessin::CreerPoint(const AcGePoint3d& position, int code, const wchar_t* nom)
{
    if (position.z == 0.0)
        return;
    pointDuDessin point;
    point.setParams(nom ? nom : L"*", position, code);
    Ajouter(point);
}

void listePointsDuDessin::fusionnerAvec(const listePointsDuDessin& autre)
{
    const int nombre = autre.nbPoint(); // as it stood, should it be this table
    for (int i = 0; i < nombre; ++i)
        Ajouter(autre.points[i]);
}

void listePointsDuDessin::remplacerPoint(int i, const pointDuDessin& point)
{
    pointDuDessin& ancien = changer(i);
    indexerEnAttente();
    objets.suspecter(i);
    const cleNom ancienne(ancien.getNomPoint(), blancsRecherche);
    if (noms.chercher(ancienne) == i)
        noms.retirer(ancienne);
    ancien = point;
    noms.poser(cleNom(ancien.getNomPoint(), blancsRecherche), i);
}

void listePointsDuDessin::changerCode(int i, int code)
{
    if (std::as_const(*this).getData(i)->getCode() != code)
        changer(i).setCode(code);
}

void listePointsDuDessin::supprimerPoint(const wchar_t* nom)
{
    int position = -1;
    if (!existPoint(nom, position))
        return;
    if (estVerrouille(points[position].getId())) // a symbol without its point would mislead
        return signalerVerrouilles(1);
    effacerEntite(points[position].getId());
    retirer(position);
    if (position != nbPoint())
        noms.poser(cleNom(points[position].getNomPoint(), blancsReindexation), position);
    if (const auto cle = cleNom::deTexte(nom, blancsReindexation))
        noms.retirer(*cle);
    premierEnAttente = nbPoint();
}

int listePointsDuDessin::supprimerPositions(const std::vector<int>& positions)
{
    std::vector<bool> partent(static_cast<std::size_t>(nbPoint()));
    int verrouilles = 0, nombre = 0;
    for (const int i : positions) {
        const bool verrouille = estVerrouille(points[i].getId()); // a symbol without its point would mislead
        verrouilles += verrouille;
        nombre += !verrouille && !partent[static_cast<std::size_t>(i)];
        partent[static_cast<std::size_t>(i)] = !verrouille;
    }
    signalerVerrouilles(verrouilles);
    if (nombre == 0)
        return 0;
    changerTout();
    tableau restent;
    restent.SetSize(0, nbPoint() - nombre);
    for (int i = 0; i < nbPoint(); ++i)
        if (partent[static_cast<std::size_t>(i)])
            effacerEntite(points[i].getId());
        else
            restent.Add(points[i]);
    points.Copy(restent);
    objets.suspecterTout();
    reindexer();
    return nombre;
}

/// The last point takes its place. Names are the caller's affair.
void listePointsDuDessin::retirer(int position)
{
    const int dernier = nbPoint() - 1;
    changer(dernier);
    if (position != dernier) {
        changer(position) = points[dernier];
        objets.suspecter(position);
    }
    points.RemoveAt(dernier);
    objets.raccourcir(static_cast<std::size_t>(dernier));
}

void listePointsDuDessin::echanger(changementTable& autre)
{
    const int nombre = nbPoint();
    bool nomsChangent = autre.nombre != nombre;
    for (auto& [position, point] : autre.points) {
        nomsChangent = nomsChangent || std::strcmp(point.getNomPoint(), points[position].getNomPoint()) != 0;
        std::swap(points[position], point);
        objets.suspecter(position);
    }
    if (autre.nombre < nombre) {
        autre.queue.assign(points.GetData() + autre.nombre, points.GetData() + nombre);
        points.SetSize(autre.nombre);
        objets.raccourcir(static_cast<std::size_t>(autre.nombre));
    } else {
        for (const pointDuDessin& point : autre.queue)
            points.Add(point);
        autre.queue.clear();
        autre.queue.shrink_to_fit();
    }
    autre.nombre = nombre;
    std::swap(nomTable, autre.nom);
    if (nomsChangent)
        reindexer();
}

void listePointsDuDessin::delDups()
{
    const int nombre = nbPoint();
    std::vector<lieuPoint> lieux(static_cast<std::size_t>(nombre));
    for (int i = 0; i < nombre; ++i)
        lieux[static_cast<std::size_t>(i)] = {points[i].getX(), points[i].getY(), points[i].getCode(), i};
    lieux = pointsDistincts(std::move(lieux));

    // Intended: emptied even when no duplicate was found, so that names are not found afterwards.
    noms.vider();
    premierEnAttente = nombre;
    const auto gardes = static_cast<int>(lieux.size());
    if (gardes == nombre)
        return;

    changerTout();
    tableau tries;
    tries.SetSize(0, gardes);
    for (const lieuPoint& lieu : lieux)
        tries.Add(points[lieu.position]);
    points.SetSize(gardes, gardes);
    points.Copy(tries);
    objets.suspecterTout();
    reindexer();
}

void listePointsDuDessin::nommerSansNom()
{
    indexerEnAttente(); // under the old names
    int numero = getMaxNum();
    for (int i = 0; i < nbPoint(); ++i)
        if (sansBlancs(points[i].getNomPoint(), marquesSansNom).empty())
            nommer(changer(i), ++numero);
}

void listePointsDuDessin::nommerParPlace()
{
    changerTout();
    for (int i = 0; i < nbPoint(); ++i)
        nommer(points[i], i + 1);
    reindexer();
}

int listePointsDuDessin::existPoint(const wchar_t* nom, int& position) const
{
    indexerEnAttente();
    const auto cle = cleNom::deTexte(nom, blancsRecherche);
    position = cle ? noms.chercher(*cle) : -1;
    return position >= 0;
}

int listePointsDuDessin::getAt(double x, double y, pointDuDessin& trouve) const
{
    const pointDuDessin* const debut = points.GetData();
    const pointDuDessin* const fin = debut + points.GetSize();
    const pointDuDessin* const p = std::find_if(debut, fin, [x, y](const pointDuDessin& point) {
        return std::abs(point.getX() - x) < tolerancePosition && std::abs(point.getY() - y) < tolerancePosition;
    });
    if (p == fin)
        return 0;
    trouve = *p;
    return 1;
}

int listePointsDuDessin::findNearestTo(double x, double y, pointDuDessin& trouve) const
{
    if (points.IsEmpty())
        return 0;
    double meilleur = 1e36; // square of the distance; beyond it the first point answers
    int position = 0;
    for (int i = 0; i < nbPoint(); ++i) {
        const double dx = points[i].getX() - x;
        const double dy = points[i].getY() - y;
        const double carre = dx * dx + dy * dy;
        if (carre < meilleur) {
            meilleur = carre;
            position = i;
        }
    }
    trouve = points[position];
    return 1;
}

int listePointsDuDessin::nombreAyantCode(int code) const
{
    const pointDuDessin* const debut = points.GetData();
    return static_cast<int>(std::count_if(debut, debut + points.GetSize(),
                                          [code](const pointDuDessin& point) { return point.getCode() == code; }));
}

int listePointsDuDessin::getMaxNum() const
{
    int plusGrand = 0;
    for (int i = 0; i < nbPoint(); ++i)
        plusGrand = std::max(plusGrand, numeroDe(points[i].getNomPoint()));
    return plusGrand;
}

void listePointsDuDessin::decalZ(const double& dz)
{
    const double decalage = dz; // dz may be an altitude of this table
    if (!std::isfinite(decalage))
        return;
    for (int i = 0; i < nbPoint(); ++i)
        if (points[i].altitudeConnue())
            changer(i).setZ(points[i].getZ() + decalage);
}

int listePointsDuDessin::getObjId(const wchar_t* nom, AcDbObjectId& id) const
{
    const pointDuDessin* const point = chercher(nom);
    if (!point)
        return 0;
    id = point->getId();
    return 1;
}

int listePointsDuDessin::getBlockPosition(const wchar_t* nom, AcGePoint3d& position, int& code) const
{
    const pointDuDessin* const point = chercher(nom);
    if (!point)
        return 0;
    if (!insertionDuBloc(point->getId(), position))
        position = point->getAs3dPnt();
    code = point->getCode();
    return 1;
}

int listePointsDuDessin::positionDe(const AcDbObjectId& id)
{
    return objets.chercher(id, {points.GetData(), static_cast<std::size_t>(points.GetSize())});
}

void listePointsDuDessin::notifyPositionPoint(const AcDbObjectId& id, const AcGePoint3d& position, int masque)
{
    const int i = positionDe(id);
    if (i < 0)
        return;
    AcGePoint3d place = points[i].getAs3dPnt();
    if (masque & 1)
        place.x = position.x;
    if (masque & 2)
        place.y = position.y;
    if (masque & 4)
        place.z = position.z;
    if (place.x != points[i].getX() || place.y != points[i].getY() || place.z != points[i].getZ())
        changer(i).setXY(place.x, place.y, place.z);
}

int listePointsDuDessin::saveToXRecord(QuarvelSerializer* s) const
{
    int ecrit = s->writeString(nomTable) && s->writeInt(nbPoint());
    for (int i = 0; ecrit && i < nbPoint(); ++i)
        ecrit = points[i].saveToXRecord(s);
    return ecrit;
}

int listePointsDuDessin::GetFromXRecord(QuarvelSerializer* s)
{
    int nombre = 0;
    if (!s->readString(nomTable) || !s->readInt(nombre) || nombre < 0)
        return 0;
    // No room is made ahead: a damaged count must not cost memory.
    for (int i = 0; i < nombre; ++i) {
        pointDuDessin point;
        if (!point.readFromXRecord(s))
            return 0;
        Ajouter(point);
    }
    return 1;
}

const pointDuDessin* listePointsDuDessin::chercher(const wchar_t* nom) const
{
    int position = -1;
    return existPoint(nom, position) ? &points.GetAt(position) : nullptr;
}

void listePointsDuDessin::reindexer()
{
    noms.vider();
    premierEnAttente = 0;
    blancsEnAttente = blancs::espacesEtTabulations;
}

void listePointsDuDessin::oublierIndex()
{
    reindexer();
    objets.suspecterTout();
}

/// Points were taken out of the array that was handed out: others moved up.
void listePointsDuDessin::oublierNomsPartis() const
{
    if (premierEnAttente <= nbPoint())
        return;
    noms.vider();
    premierEnAttente = 0;
}

void listePointsDuDessin::indexerEnAttente() const
{
    oublierNomsPartis();
    if (premierEnAttente == nbPoint())
        return;
    const std::string_view blancsDesNoms = blancsEnAttente == blancs::espaces ? blancsRecherche : blancsReindexation;
    noms.prevoir(static_cast<std::size_t>(nbPoint()));
    for (; premierEnAttente < nbPoint(); ++premierEnAttente)
        noms.poser(cleNom(points[premierEnAttente].getNomPoint(), blancsDesNoms), premierEnAttente);
}
