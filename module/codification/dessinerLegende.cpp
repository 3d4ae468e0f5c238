#include "codification/dessinerLegende.h"

#include <cmath>

#include "services/ajoutEntites.h"
#include "services/definitionsDessin.h"
#include "services/espaceObjet.h"

#include "dbapserv.h"
#include "dbmtext.h"

namespace {

constexpr const wchar_t* titreLegende = L"Légende";

/// A line with what it is drawn from.
struct contenuLigne {
    const blocDuDessin* bloc = nullptr; // or the layer
    AcDbObjectId calque;
    std::wstring texte;
};

std::vector<contenuLigne> contenuDe(std::span<const blocDuDessin> blocs, bool avecCalques)
{
    std::vector<contenuLigne> lignes;
    for (const blocDuDessin& bloc : blocs)
        lignes.push_back({&bloc, {}, bloc.description.empty() ? bloc.nom : bloc.description});
    if (avecCalques)
        for (const AcDbObjectId& calque : calquesUtilises())
            lignes.push_back({nullptr, calque, nomDefinition(calque)});
    return lignes;
}

/// Descriptions taken from multi-line texts keep their codes.
bool aDesCodes(const std::wstring& texte)
{
    return texte.find_first_of(L"\\{") != std::wstring::npos;
}

std::unique_ptr<AcDbEntity> texteDe(const std::wstring& texte, const AcGePoint3d& place, double hauteur)
{
    if (!aDesCodes(texte))
        return texteCale({place.x, place.y - hauteur / 2.0, place.z}, texte, hauteur, 0.0, calageTexte::gauche);
    auto lignes = std::make_unique<AcDbMText>();
    lignes->setDatabaseDefaults();
    lignes->setContents(texte.c_str());
    lignes->setTextHeight(hauteur);
    lignes->setAttachment(AcDbMText::kMiddleLeft);
    lignes->setLocation(place);
    return lignes;
}

double hauteurDe(const AcDbEntity& texte)
{
    AcDbExtents etendue;
    return texte.getGeomExtents(etendue) == Acad::eOk ? etendue.maxPoint().y - etendue.minPoint().y : 0.0;
}

std::unique_ptr<AcDbEntity> referenceDe(const blocDuDessin& bloc, const AcGePoint3d& milieu, double echelle)
{
    AcGeVector3d versMilieu(0.0, 0.0, 0.0); // from the base point
    if (!bloc.etendue.isEmpty())
        versMilieu =
            (bloc.etendue.minPoint() - bloc.pointDeBase) * 0.5 + (bloc.etendue.maxPoint() - bloc.pointDeBase) * 0.5;
    const AcGePoint3d place(milieu.x - versMilieu.x * echelle, milieu.y - versMilieu.y * echelle, milieu.z);
    auto reference = std::make_unique<AcDbBlockReference>(place, bloc.id);
    reference->setDatabaseDefaults();
    reference->setScaleFactors({echelle, echelle, echelle});
    return reference;
}

/// Looks like its layer without being on it: the layer may be turned off.
std::unique_ptr<AcDbEntity> traitDe(const AcDbObjectId& idCalque, const AcGePoint3d& milieu, double longueur)
{
    auto trait = std::make_unique<AcDbLine>(AcGePoint3d(milieu.x - longueur / 2.0, milieu.y, milieu.z),
                                            AcGePoint3d(milieu.x + longueur / 2.0, milieu.y, milieu.z));
    trait->setDatabaseDefaults();
    const AcDbObjectPointer<AcDbLayerTableRecord> calque(idCalque);
    if (calque.openStatus() != Acad::eOk)
        return trait;
    AcCmColor couleur = calque->color();
    if (const Adesk::Int32 vraie = calque->trueColor(); vraie >= 0)
        couleur.setRGB(static_cast<Adesk::UInt8>(vraie >> 16 & 255), static_cast<Adesk::UInt8>(vraie >> 8 & 255),
                       static_cast<Adesk::UInt8>(vraie & 255));
    trait->setColor(couleur);
    trait->setLinetype(calque->linetypeObjectId());
    trait->setLineWeight(calque->lineWeight());
    return trait;
}

/// "LEGENDE", or the first free name that begins so.
AcDbObjectId creerBlocLegende(AcDbDatabase& db)
{
    AcDbBlockTable* blocs = nullptr;
    AcDbObjectId id;
    if (db.getBlockTable(blocs, AcDb::kForWrite) != Acad::eOk)
        return id;
    std::wstring nom = L"LEGENDE";
    for (int n = 2; blocs->has(nom.c_str()); ++n)
        nom = L"LEGENDE_" + std::to_wstring(n);
    auto bloc = std::make_unique<AcDbBlockTableRecord>();
    bloc->setName(nom.c_str());
    if (blocs->add(id, bloc.get()) == Acad::eOk)
        bloc.release()->close();
    blocs->close();
    return id;
}

void remplir(const AcDbObjectId& espace, const std::vector<contenuLigne>& lignes, const parametresLegende& parametres,
             const AcGePoint3d& place)
{
    std::vector<ligneLegende> mesures;
    for (const contenuLigne& ligne : lignes) {
        ligneLegende mesure;
        mesure.trait = !ligne.bloc;
        if (ligne.bloc)
            mesure = {ligne.bloc->tailleX(), ligne.bloc->tailleY(), 0.0, false};
        mesure.hauteurTexte = hauteurDe(*texteDe(ligne.texte, place, parametres.tailleTextes));
        mesures.push_back(mesure);
    }
    const dispositionLegende disposition = disposerLegende(mesures, parametres);
    const auto en = [&](point2 p) { return AcGePoint3d(place.x + p.x, place.y + p.y, place.z); };
    ajoutEntites ajout(espace);
    ajout.ecrire(en(disposition.titre), titreLegende, disposition.hauteurTitre);
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        const placeLegende& p = disposition.lignes[i];
        ajout.ajouter(lignes[i].bloc ? referenceDe(*lignes[i].bloc, en(p.milieu), p.echelle)
                                     : traitDe(lignes[i].calque, en(p.milieu), parametres.longueurTrait));
        ajout.ajouter(texteDe(lignes[i].texte, en(p.texte), parametres.tailleTextes));
    }
}

} // namespace

int dessinerLegende(std::span<const blocDuDessin> blocs, const parametresLegende& parametres, const AcGePoint3d& place)
{
    AcDbDatabase* const db = acdbHostApplicationServices()->workingDatabase();
    const std::vector<contenuLigne> lignes = contenuDe(blocs, parametres.calques);
    if (!db || lignes.empty())
        return 0;
    if (!parametres.grouper) {
        remplir(espaceObjetDuDessin(), lignes, parametres, place);
        return static_cast<int>(lignes.size());
    }
    const AcDbObjectId bloc = creerBlocLegende(*db);
    if (bloc.isNull())
        return 0;
    remplir(bloc, lignes, parametres, AcGePoint3d::kOrigin);
    auto reference = std::make_unique<AcDbBlockReference>(place, bloc);
    reference->setDatabaseDefaults();
    ajouterEspaceObjet(std::move(reference));
    return static_cast<int>(lignes.size());
}
