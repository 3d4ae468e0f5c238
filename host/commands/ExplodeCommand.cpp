#include <algorithm>
#include <functional>

#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/Transforming.h"

#include "acarray.h"
#include "dbents.h"

namespace {

/// Attributes are values that a surveyor read: they stay, as texts that look the same.
void keepAttributes(const AcDbBlockReference& reference, AcDbVoidPtrArray& parts)
{
    const std::unique_ptr<AcDbObjectIterator> each(reference.attributeIterator());
    for (; !each->done(); each->step()) {
        const AcDbObjectPointer<AcDbAttribute> attribute(each->objectId());
        if (!attribute.object() || attribute->isConstant()) // constant ones come from the block
            continue;
        auto text = std::make_unique<AcDbText>(attribute->position(), attribute->textStringConst(),
                                               attribute->textStyle(), attribute->height(), attribute->rotation());
        text->setPropertiesFrom(attribute.object());
        text->setNormal(attribute->normal());
        text->setPosition(attribute->position());
        text->setWidthFactor(attribute->widthFactor());
        text->setOblique(attribute->oblique());
        text->setHorizontalMode(attribute->horizontalMode());
        text->setVerticalMode(attribute->verticalMode());
        if (!text->isDefaultAlignment())
            text->setAlignmentPoint(attribute->alignmentPoint());
        text->setPosition(attribute->position());
        if (attribute->isInvisible())
            text->setVisibility(AcDb::kInvisible);
        parts.append(static_cast<AcDbEntity*>(text.release()));
    }
}

/// Replaces an entity by its parts; false when it has none, or one beyond all numbers.
bool explodeObject(AcDbObjectId id)
{
    AcDbVoidPtrArray parts;
    AcDbObjectId block;
    {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (!entity.object() || entity->explode(parts) != Acad::eOk)
            return false;
        block = entity->ownerId();
        if (const AcDbBlockReference* reference = AcDbBlockReference::cast(entity.object()))
            keepAttributes(*reference, parts);
    }
    std::vector<std::unique_ptr<AcDbEntity>> made;
    for (void* part : parts)
        made.emplace_back(static_cast<AcDbEntity*>(part));
    if (!std::ranges::all_of(made, [](const auto& part) { return staysAmongNumbers(*part); }))
        return false;
    for (auto& part : made)
        addAsItIs(std::move(part), block);
    return eraseObject(id) == Acad::eOk;
}

} // namespace

void commands::explode()
{
    const auto objects = askEditable();
    const auto whole = static_cast<std::size_t>(std::ranges::count_if(objects, std::not_fn(explodeObject)));
    tellRefused(whole, objects.size(), L" ne peut être décomposé.", L" ne peuvent être décomposés.");
}
