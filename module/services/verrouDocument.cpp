#include "services/verrouDocument.h"

#include "acdocman.h"

verrouDocument::verrouDocument() : m_document(acDocManager->curDocument())
{
    if (m_document)
        acDocManager->lockDocument(m_document);
}

verrouDocument::~verrouDocument()
{
    if (m_document)
        acDocManager->unlockDocument(m_document);
}
