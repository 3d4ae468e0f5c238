#pragma once

#include "exchange/lecteurPoints.h"

/// Points of LandXML files, versions 1.0 to 2.0: every CgPoint with coordinates, wherever it stands. Its text is north,
/// east and, where it is known, elevation; `code` is the code, an observation where it is no number; `desc` an
/// observation. Lengths become metres. The document is read as it comes and never held.
class lecteurLandXml final : public lecteurPoints {
public:
    std::wstring_view nom() const override { return L"LandXML"; }
    std::wstring_view filtre() const override { return L"*.xml;*.landxml"; }
    bool reconnait(std::wstring_view extension, std::string_view debut) const override;
    void lire(sourceOctets& source, pointsLus& lus) const override;
};
