#pragma once

#include <QIcon>

/// The picture of a tool by its name in the table of menus; a null icon for a name that has none. Drawn in the colours
/// of the application.
QIcon toolIcon(const QString& name);
