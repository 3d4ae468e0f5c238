#pragma once

#include <string>
#include <vector>

#include "tools/placerDefinitions.h"

#include "dbid.h"

/// What lightening takes out of model space.

struct optionsAllegement {
    bool nuls = true, repetes = true, sommets = true, segments = true;
    double tolerance = 0.01;
    std::vector<AcDbObjectId> objets; ///< empty: all
    std::wstring calques;             ///< names and patterns, between commas; empty: all
    /// Unused definitions, of the whole drawing whatever the choice of entities.
    std::array<bool, nombreGenresDefinition> definitions{};
};

/// The changes found, not made yet. Point symbols, and everything that bears data of programs (extended data, records:
/// obstacles, axes), stay as they are; so do entities outside the choice or on locked layers. Lines among these still
/// hold the vertices that others share with them.
class allegementDessin {
public:
    explicit allegementDessin(const optionsAllegement& options);

    struct bilan {
        int nuls = 0;
        int repetes = 0;
        int sommets = 0;
        int segments = 0;
        int verrouilles = 0; ///< of the choice, left alone
    };
    const bilan& trouve() const { return m_bilan; }
    const definitionsInutiles& definitions() const { return m_definitions; }
    bool vide() const
    {
        return m_effaces.empty() && m_lignes.empty() && m_segments.empty() && m_definitions.ids.empty();
    }
    /// Makes them, as one step of undo.
    void appliquer() const;

private:
    struct ligneChangee {
        AcDbObjectId id;
        std::vector<std::size_t> restent;
    };
    struct segmentChange {
        AcDbObjectId id;
        double debut[3], fin[3];
    };
    friend class analyseAllegement;

    bilan m_bilan;
    std::vector<AcDbObjectId> m_effaces;
    std::vector<ligneChangee> m_lignes;
    std::vector<segmentChange> m_segments;
    definitionsInutiles m_definitions;
};
