#pragma once

#include "exchange/lecteurPoints.h"

/// Coordinate files of instruments: a block of words a line, each of an index (2 digits), 4 characters of information
/// of which the last is the unit, a sign, then 8 characters of data, or 16 in lines that begin with "*". Read: 11 the
/// point's number, 81 82 83 east, north and height, 84 85 86 those of the station where the first are absent, 71 the
/// code (an observation where it is no number), 72 to 79 the observation. Lengths become metres. Measures beside
/// coordinates are left alone; a block without coordinates gives no point, and says so.
class lecteurInstrument final : public lecteurPoints {
public:
    std::wstring_view nom() const override { return L"Coordonnées d'appareil"; }
    std::wstring_view filtre() const override { return L"*.gsi"; }
    bool reconnait(std::wstring_view extension, std::string_view debut) const override;
    void lire(sourceOctets& source, pointsLus& lus) const override;
};
