#pragma once

#include <functional>
#include <QString>

class QPainter;

/// A picture on disk: .png, .svg or .pdf, told by the extension of its name. An older file is replaced once the new one
/// is whole.
struct PictureFile {
    QString name;
    int width = 0, height = 0; ///< in dots
    double dotsPerInch = 96.0; ///< sets the size on paper

    /// @param paint paints in coordinates of dots, (0, 0) the upper left corner
    /// @return what went wrong, in French; empty when all went well
    QString write(const std::function<void(QPainter&)>& paint) const;

    /// Whether its form keeps lines as lines: dots may then be finer than any screen's.
    bool isVector() const;
};
