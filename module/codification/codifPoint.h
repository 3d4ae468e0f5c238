#pragma once

#include <array>
#include <iosfwd>
#include <string>

#include "dbid.h"

class AcDbLayerTable;

/// The five layers of a code, by what they hold; indexes of the arrays below.
enum emplacementCalque { calqueBlock, calqueAltitudes, calqueNumero, calqueObs, calqueCode, nombreCalques };

/// Ids of the layers in one drawing. They belong to it: a copy starts without any, an assignment keeps those it has.
class calquesResolus {
public:
    calquesResolus() = default;
    calquesResolus(const calquesResolus&) {}
    calquesResolus& operator=(const calquesResolus&) { return *this; }

    AcDbObjectId& operator[](std::size_t emplacement) { return ids.at(emplacement); }
    const AcDbObjectId& operator[](std::size_t emplacement) const { return ids.at(emplacement); }

private:
    std::array<AcDbObjectId, nombreCalques> ids;
};

/// One code: how the points that bear it are drawn.
struct codifPoint {
    codifPoint();

    int code = 1;
    std::wstring libelle = L"Point Topo";
    std::wstring chemin;      ///< drawing file whose contents are the block; velablk1 of the library by default
    double tailleBlock = 1.0; ///< scale of the block and height of the texts, in drawing units
    /// Colour indexes (0 to 256) that the layers get when they are made.
    std::array<int, nombreCalques> couleurs{7, 7, 7, 7, 7};
    calquesResolus idCalques; ///< filled by creerCalques; null until then
    std::array<std::wstring, nombreCalques> layers{L"0", L"_ Altitudes Points", L"_ Numero Points", L"_ Obs Points",
                                                   L"_ Codes Points"};
    int precisionAltitudes = 2; ///< decimals of the altitude text

    std::wstring getLayer(int emplacement) const { return layers.at(static_cast<std::size_t>(emplacement)); }
    void setLayer(int emplacement, const wchar_t* nom) { layers.at(static_cast<std::size_t>(emplacement)) = nom; }

    /// Makes sure that the five layers exist, and fills `idCalques`. A blank name becomes "0"; a layer that exists
    /// keeps its colour. @param table open for write; null: that of the working drawing is opened and closed. Without
    /// one, nothing happens.
    void creerCalques(AcDbLayerTable* table = nullptr);
    /// Fills `idCalques` with those of the five layers that exist, the others null.
    void retrouverCalques(const AcDbLayerTable& table);

    /// The older text form, 8-bit: a block of lines from "Code {" to "}". Fields that the block does not name stay as
    /// they are, and so do those read before a failure.
    /// @return 1, or 0 when there is no whole block.
    int lireTexte(std::istream& flux);
    /// Begins with a line feed and ends without one. @return 1, or 0 when the stream failed.
    int ecrireTexte(std::ostream& flux) const;
};

/// Full path of a block of the module's library.
std::wstring cheminBiblio(const wchar_t* fichier);
