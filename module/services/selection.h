#pragma once

#include <span>
#include <utility>
#include <vector>

#include "adsdef.h"
#include "dbid.h"

/// Selection sets of the host.

/// The entities of a set, in its order; those erased meanwhile are left out.
std::vector<AcDbObjectId> entitesDe(const ads_name jeu);

/// Asks the user to select entities whose kind is `type` ("INSERT", "*" for any), or takes what was selected before the
/// command. @return what was selected; nothing when the user gave nothing.
std::vector<AcDbObjectId> demanderSelection(const wchar_t* message, const wchar_t* type);
/// The same with a filter of texts, each with its group code, operators (-4) among them.
std::vector<AcDbObjectId> demanderSelection(const wchar_t* message,
                                            const std::vector<std::pair<short, const wchar_t*>>& filtre);

/// The same, for a dialog that asks again. @return false when the user cancelled: `ids` are as they were.
bool redemanderSelection(const wchar_t* message, const wchar_t* type, std::vector<AcDbObjectId>& ids);

/// The entities whose kind is `type` among those that were selected before the command. They are taken: nothing is
/// selected any more.
std::vector<AcDbObjectId> selectionPrealable(const wchar_t* type);

/// Asks the user for one entity. @return null when none was picked.
AcDbObjectId designerEntite(const wchar_t* message);

/// Every entity of the whole drawing, all spaces, whose kind is `type`, in the order of the host's selection.
std::vector<AcDbObjectId> selectionDuDessin(const wchar_t* type);

/// Gives the entities to AutoLISP as a new set, which is AutoLISP's to release; nil for none. Erased ones are left out.
/// @return RTNORM.
int rendreSelection(std::span<const AcDbObjectId> ids);

/// Every entity of the whole drawing, all spaces, that holds extended data of an application, the youngest first.
std::vector<AcDbObjectId> selectionAvecDonnees(const wchar_t* application);
