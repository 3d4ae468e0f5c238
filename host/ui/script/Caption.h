#pragma once

#include <QString>

/// A text as one types it: typographic blanks and apostrophes become plain ones, blanks around it are dropped.
QString typedText(QString text);

/// A caption, a label or a title as scripts write it: as typed, without the "&" of its mnemonic and the colon at its
/// end. Letter case and accents stay.
QString captionText(QString caption);
