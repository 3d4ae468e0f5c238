#pragma once

#include <QStringList>

/// Names that can be typed at the prompt of commands and begin with `start`, whatever the letter case, in alphabetical
/// order: local names of the command stack, global ones with "_", and functions "C:NAME" of the current document.
/// At most `most` of them.
QStringList commandNamesFrom(const QString& start, int most);
