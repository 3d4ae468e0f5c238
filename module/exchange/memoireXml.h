#pragma once

#include <expat.h>

/// Memory for the parsers of one thread, 64 MiB for all of them: a parser keeps the elements that are open and every
/// name it met, and a document may open and name without end. Beyond it a parser stops with XML_ERROR_NO_MEMORY.
const XML_Memory_Handling_Suite* memoireXmlBornee();
