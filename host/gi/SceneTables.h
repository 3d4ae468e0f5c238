#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "dbmain.h"

/// What drawing needs of layers, linetypes, text styles and header variables, read once and kept.

struct LayerState {
    bool off = false, frozen = false;
    bool isZero = false; ///< in a block, what lies on it takes the layer of the reference
    std::int16_t color = 7, lineWeight = -3;
    std::int32_t trueColor = -1;
    AcDbStub* linetype = nullptr;
};

/// Lengths of a linetype's dashes (positive), gaps (negative) and dots (0), and their sum without signs.
struct Dashes {
    std::vector<double> lengths;
    double total = 0.0;
};

/// The least length of a dash or a gap, in lengths of the whole pattern: less is the rounding of sums.
constexpr double leastDash = 1e-9;

/// Dashes with anything to cut, or no lengths at all. What is shorter than can be drawn is a dot, or no gap.
Dashes usableDashes(std::vector<double> lengths);

class SceneTables {
public:
    explicit SceneTables(AcDbDatabase& database) : m_database(database) {}

    /// Everything is read anew when it is next asked for.
    void forget();

    const LayerState& layer(AcDbStub* record);
    /// Null for one without dashes.
    const Dashes* linetype(AcDbStub* record);
    bool isByLayer(AcDbStub* linetype);
    bool isByBlock(AcDbStub* linetype);
    /// Font file of a text style.
    const std::wstring& font(AcDbStub* style);

    struct Settings {
        double linetypeScale = 1.0; ///< LTSCALE
        int pointMode = 0;          ///< PDMODE
        double pointSize = 0.0;     ///< PDSIZE
        int attributeMode = 1;      ///< ATTMODE: 0 none shows, 1 the visible ones, 2 all
        bool fill = true;           ///< FILLMODE
        int lineWeight = 25;        ///< the usual one, hundredths of a millimetre
    };
    const Settings& settings();

private:
    AcDbDatabase& m_database;
    std::unordered_map<AcDbStub*, LayerState> m_layers;
    std::unordered_map<AcDbStub*, Dashes> m_linetypes;
    std::unordered_map<AcDbStub*, std::wstring> m_fonts;
    AcDbStub* m_lastRecord = nullptr; // layers come in runs
    const LayerState* m_lastLayer = nullptr;
    Settings m_settings;
    AcDbStub *m_byLayer = nullptr, *m_byBlock = nullptr;
    bool m_settingsRead = false;
};
