#include "implantation/sortiesImplantation.h"

#include "implantation/entitesImplantation.h"
#include "implantation/fichiersAppareil.h"
#include "implantation/rapportImplantation.h"
#include "implantation/traceImplantation.h"

namespace {

constexpr const wchar_t* nomDeGroupe = L"IMPLANTATION";

dessinPlan traceBloc(const blocStation& bloc, const travailImplantation& travail)
{
    const unsigned masque = masqueDe(travail.options);
    dessinPlan dessin;
    if (travail.options.stations)
        dessin = traceStation(bloc.station, masque, reglagesDuProcessus());
    for (const pointImplante& p : bloc.points)
        dessin.ajouter(tracePoint(p, &bloc.station, masque, travail.verifier, reglagesDuProcessus()));
    return dessin;
}

} // namespace

void dessinerCroquis(const travailImplantation& travail, point2 place)
{
    dessinerGroupe(croquisImplantation(travail.resultat(), reglagesDuProcessus()).place(1.0, place), L"CROQUIS");
}

void dessinerResultats(const travailImplantation& travail)
{
    const resultatImplantation resultat = travail.resultat();
    dessinPlan tout;
    for (const blocStation& bloc : resultat.blocs) {
        const dessinPlan dessin = traceBloc(bloc, travail);
        if (travail.options.grouper == optionsImplantation::grouperParStation)
            dessinerGroupe(dessin, std::wstring(nomDeGroupe) + L"-" + bloc.station.station.nom);
        else
            tout.ajouter(dessin);
    }
    for (const pointImplante& p : resultat.sansStation)
        tout.ajouter(tracePoint(p, nullptr, masqueDe(travail.options), travail.verifier, reglagesDuProcessus()));
    if (travail.options.grouper == optionsImplantation::toutGrouper)
        dessinerGroupe(tout, nomDeGroupe);
    else
        dessinerEntites(tout, {});
}

bool dessinerCoupe(const travailImplantation& travail, const pointImplante& point, point2 place)
{
    const auto coupe = travail.coupeDe(point);
    if (!coupe)
        return false;
    const donneesStation station = travail.station(point.station)->donnees();
    dessinerGroupe(traceCoupe(*coupe, point, station, reglagesDuProcessus()).place(1.0, place),
                   L"COUPE-" + station.station.nom + L"-" + point.nom);
    return true;
}

std::string contenuFichier(const travailImplantation& travail, formeFichier forme, std::vector<std::wstring>& ecartes)
{
    const resultatImplantation resultat = travail.resultat();
    switch (forme) {
    case formeFichier::colonnes:
        return colonnesImplantation(resultat);
    case formeFichier::mots8:
    case formeFichier::mots16:
        return motsImplantation(resultat, forme == formeFichier::mots16, ecartes);
    case formeFichier::json:
        return jsonImplantation(resultat);
    case formeFichier::html:
        break;
    }
    htmlDocument rapport;
    rapporterImplantation(resultat, reglagesDuProcessus(), rapport);
    return rapport.text();
}
