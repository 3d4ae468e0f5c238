#pragma once

#include "services/Uncopyable.h"

class AcApDocument;

/// Keeps the current document locked, whatever ends the scope. None may be open.
class verrouDocument : Uncopyable {
public:
    verrouDocument();
    ~verrouDocument();

private:
    AcApDocument* m_document;
};
