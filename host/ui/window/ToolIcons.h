#pragma once

#include <QIcon>

/// The picture of a tool: the name of one of ours, or its strokes on a square of 24, in the form of an SVG path with
/// absolute M, L, C, Z only ("M4 20 L20 4"). A null icon for what is neither. Drawn in the colours of the application.
QIcon toolIcon(const QString& picture);

/// Whether there is such a picture.
bool isToolPicture(const QString& picture);
