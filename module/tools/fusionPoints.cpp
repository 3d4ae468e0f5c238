#include "tools/fusionPoints.h"

#include <algorithm>

fusionPoints fusionner(const std::vector<std::vector<int>>& groupes, const std::vector<int>& choisis)
{
    fusionPoints fusion;
    for (const std::vector<int>& groupe : groupes) {
        std::vector<int> restent, partent;
        for (const int i : groupe) {
            const bool choisi = std::binary_search(choisis.begin(), choisis.end(), i);
            (choisi ? restent : partent).push_back(i);
        }
        if (!restent.empty() && !partent.empty())
            fusion.gardes.push_back({restent.front(), std::move(partent)});
    }
    return fusion;
}

std::wstring observationsReunies(const std::vector<std::wstring>& observations)
{
    std::vector<std::wstring> vues;
    std::wstring reunies;
    for (const std::wstring& observation : observations) {
        if (observation.empty() || std::find(vues.begin(), vues.end(), observation) != vues.end())
            continue;
        vues.push_back(observation);
        reunies += (reunies.empty() ? L"" : L" / ") + observation;
    }
    return reunies;
}
