#pragma once

#include <QString>

#include "ed/input/InputSource.h"

/// The prompt of a request as the command line shows it: rich text in which the keywords between brackets are links,
/// whose addresses are the keywords.
QString promptAsRichText(const InputRequest& request);
