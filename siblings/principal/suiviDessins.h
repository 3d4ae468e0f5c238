#pragma once

#include <memory>
#include <unordered_map>

#include "points/projetsTopo.h"

#include "acdocman.h"

/// Follows the open drawings: makes a project for each, hands over that of the current one, and destroys it with its
/// drawing.
class suiviDessins : public AcApDocManagerReactor {
public:
    suiviDessins();
    ~suiviDessins() override;

    void documentBecameCurrent(AcApDocument* document) override;
    void documentToBeDestroyed(AcApDocument* document) override;

private:
    /// A drawing and its project; passes on the moves of its symbols.
    class dessinSuivi;

    std::unordered_map<AcDbDatabase*, std::unique_ptr<dessinSuivi>> dessins;
};
