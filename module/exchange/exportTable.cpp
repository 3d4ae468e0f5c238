#include "exchange/exportTable.h"

#include "codification/observationSymbole.h"
#include "exchange/exportCarte.h"
#include "points/listePointsDuDessin.h"
#include "services/codages.h"

bool estCarte(const std::filesystem::path& fichier)
{
    return formatCarte(fichier) != nullptr;
}

issueExport exporterTable(const listePointsDuDessin& table, std::span<const int> places, const tableCodification& codes,
                          const std::filesystem::path& fichier, const std::string& projection,
                          const std::function<void()>& avancer)
{
    const formatExport format = formatDuFichier(fichier);
    const bool carte = estCarte(fichier), observer = carte || format == formatExport::landXml;
    std::size_t rang = 0;
    std::string observation;
    const pointSuivant suivant = [&](pointExporte& exporte) {
        if (rang == places.size())
            return false;
        const pointDuDessin& point = *table.getData(places[rang++]);
        exporte = {point.getNomPoint(), point.getX(), point.getY(), point.getZ(), point.getCode(), {}};
        if (observer)
            exporte.observation = observation = versAnsi(observationDe(point.getId()));
        avancer();
        return true;
    };
    if (carte)
        return exporterCarte(fichier, projection, codes, suivant);
    std::error_code erreur;
    const issueEcriture issue = exporterPoints(fichier, format, suivant, &erreur);
    return {issue, phraseEcriture(fichier.filename().wstring(), issue, erreur)};
}

std::wstring phraseSansPlace(const issueExport& issue)
{
    return issue.sansPlace == 0
               ? std::wstring()
               : std::to_wstring(issue.sansPlace) + L" point(s) dont X ou Y est inconnu : laissé(s) hors de la carte.";
}
