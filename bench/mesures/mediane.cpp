#include "mesures/mediane.h"

#include <algorithm>
#include <ctime>
#include <vector>

namespace {

double tempsProcesseur()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

double duree(const std::function<void()>& preparer, const std::function<void()>& travail)
{
    preparer();
    const double debut = tempsProcesseur();
    travail();
    return tempsProcesseur() - debut;
}

double milieu(std::vector<double>& secondes)
{
    std::ranges::sort(secondes);
    return secondes[secondes.size() / 2];
}

} // namespace

double mediane(int passes, const std::function<void()>& preparer, const std::function<void()>& travail)
{
    constexpr double dureeMinimale = 0.1;
    std::vector<double> secondes;
    for (double total = 0.0; secondes.size() < static_cast<std::size_t>(passes) || total < dureeMinimale;
         total += secondes.back())
        secondes.push_back(duree(preparer, travail));
    return milieu(secondes);
}

double medianeDesEcarts(int passes, const std::function<void()>& preparer, const std::function<void()>& moindre,
                        const std::function<void()>& travail)
{
    std::vector<double> ecarts;
    for (int i = 0; i < passes; ++i) {
        const double premier = duree(preparer, moindre);
        ecarts.push_back(duree(preparer, travail) - premier);
    }
    return milieu(ecarts);
}

dureeAuPlancher medianeAuPlancher(int passes, const std::function<void()>& preparer,
                                  const std::function<void()>& plancher, const std::function<void()>& travail)
{
    std::vector<double> secondes, rapports;
    for (int i = 0; i < passes; ++i) {
        const double dessous = duree(preparer, plancher);
        secondes.push_back(duree([] {}, travail));
        rapports.push_back(secondes.back() / dessous);
    }
    return {milieu(secondes), milieu(rapports)};
}
