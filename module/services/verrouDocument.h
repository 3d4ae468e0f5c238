#pragma once

class AcApDocument;

/// Keeps the current document locked, whatever ends the scope. None may be open.
class verrouDocument {
public:
    verrouDocument();
    ~verrouDocument();
    verrouDocument(const verrouDocument&) = delete;
    verrouDocument& operator=(const verrouDocument&) = delete;

private:
    AcApDocument* m_document;
};
