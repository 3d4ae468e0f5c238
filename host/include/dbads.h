#pragma once

#include "acadstrc.h"
#include "adsdef.h"
#include "dbid.h"

/// Prints an error message. In this host the command that runs also counts as failed: the message is printed once it
/// ends, as its reason, and a script stops there. @return RTNORM.
int acdbFail(const ACHAR* reason);

/// Entity names: object ids as the C-style interface carries them.

/// eInvalidAdsName for a name that is no object's, eWasErased for an erased one; `id` then stays as it was.
inline Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name)
{
    AcDbObjectId named;
    named.setFromOldId(name[0]);
    if (!named.isValid())
        return Acad::eInvalidAdsName;
    if (named.isErased())
        return Acad::eWasErased;
    id = named;
    return Acad::eOk;
}

/// eNullObjectId when the id is null.
inline Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id)
{
    if (id.isNull())
        return Acad::eNullObjectId;
    name[0] = id.asOldId();
    name[1] = 0;
    return Acad::eOk;
}

/// Changes an entity by a list: its name (-1), then -3 and the extended data to put in place of those of the
/// applications they name (1001 items). This host changes extended data so; use the classes for what else an entity
/// holds.
/// @return RTNORM; RTREJ for a list with other items, or data that the entity refuses; RTERROR when there is no such
/// entity to change.
int acdbEntMod(const resbuf* entity);
