#include "ed/input/Transients.h"

#include <algorithm>

#include "ap/DocumentData.h"
#include "rx/HostSession.h"

#include "acdocman.h"

namespace {

struct Listener {
    std::function<void(AcApDocument&)> changed;
};

std::function<void(AcApDocument&)>& listener()
{
    return HostSession::part<Listener>().changed;
}

class TransientManager : public AcGiTransientManager {
public:
    bool addTransient(AcGiDrawable* drawable, AcGiTransientDrawingMode mode, int subDrawingMode,
                      const AcGeIntArray&) override
    {
        AcApDocument* const document = curDoc();
        return document && Transients::of(*document).add(drawable, mode, subDrawingMode);
    }
    bool updateTransient(AcGiDrawable* drawable, const AcGeIntArray&) override
    {
        AcApDocument* const document = curDoc();
        return document && Transients::of(*document).update(drawable);
    }
    bool eraseTransient(AcGiDrawable* drawable, const AcGeIntArray&) override
    {
        AcApDocument* const document = curDoc();
        return document && Transients::of(*document).remove(drawable);
    }
    bool eraseTransients(AcGiTransientDrawingMode mode, int subDrawingMode, const AcGeIntArray&) override
    {
        AcApDocument* const document = curDoc();
        return document && Transients::of(*document).removeAll(mode, subDrawingMode);
    }
};

} // namespace

AcGiTransientManager* acgiGetTransientManager()
{
    return &HostSession::part<TransientManager>();
}

Transients& Transients::of(AcApDocument& document)
{
    static DocumentData<Transients> ofDocuments;
    Transients& transients = ofDocuments.of(document);
    transients.m_document = &document;
    return transients;
}

void Transients::onChange(std::function<void(AcApDocument&)> changed)
{
    listener() = std::move(changed);
}

void Transients::changed()
{
    ++m_revision;
    if (listener())
        listener()(*m_document);
}

void Transients::addVector(const Vector& vector)
{
    m_vectors.push_back(vector);
    changed();
}

bool Transients::add(AcGiDrawable* drawable, AcGiTransientDrawingMode mode, int subMode)
{
    if (!drawable || std::ranges::find(m_items, drawable, &Item::drawable) != m_items.end())
        return false;
    m_items.push_back({drawable, mode, subMode});
    changed();
    return true;
}

bool Transients::update(AcGiDrawable* drawable)
{
    if (std::ranges::find(m_items, drawable, &Item::drawable) == m_items.end())
        return false;
    changed();
    return true;
}

bool Transients::remove(AcGiDrawable* drawable)
{
    if (std::erase_if(m_items, [drawable](const Item& item) { return item.drawable == drawable; }) == 0)
        return false;
    changed();
    return true;
}

bool Transients::removeAll(AcGiTransientDrawingMode mode, int subMode)
{
    const auto isOfMode = [&](const Item& item) { return item.mode == mode && item.subMode == subMode; };
    if (std::erase_if(m_items, isOfMode) == 0)
        return false;
    changed();
    return true;
}

void Transients::setDragged(const AcDbEntity* entity)
{
    m_dragged = entity;
    changed();
}

void Transients::setGhost(std::optional<Ghost> ghost)
{
    m_ghost = std::move(ghost);
    changed();
}

void Transients::setStatusText(std::wstring text)
{
    m_status = std::move(text);
    changed();
}

void Transients::setCoordinatesText(std::wstring text)
{
    m_coordinates = std::move(text);
    changed();
}

void Transients::redrawn()
{
    m_vectors.clear();
    std::erase_if(m_items, [](const Item& item) { return item.mode == kAcGiDirectShortTerm; });
    changed();
}
