#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "calculs/cheminement.h"

/// Expects the stations of a computation where those of the other one are, once moved.
void comparerStations(const cheminement& c, const cheminement& reference,
                      const std::function<stationCorrigee(stationCorrigee)>& deplacement);

/// Expects, for each rule of levelling, the report that a file of rapports/ holds byte for byte: "NAME-0.html" and so
/// on.
void attendreRapports(const std::string& nom, const std::function<std::string(int nivellement)>& rapport);
