#pragma once

#include <QIcon>
#include <QString>

/// A small picture of the symbol that a drawing file holds; null for a file that is no symbol, or cannot be read.
QIcon imageBloc(const QString& fichier);
