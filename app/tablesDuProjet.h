#pragma once

#include "ui/window/PointTables.h"

class pointDuDessin;

/// The point tables of the project in use, for the window's panel.
class tablesDuProjet : public PointTables {
public:
    QStringList tables() const override;
    int current() const override;
    void setCurrent(int table) override;
    int count(int table) const override;
    std::optional<ShownPoint> point(int table, int place) const override;
    std::uint64_t state() const override;
    std::uint64_t drafts() const override;
};
