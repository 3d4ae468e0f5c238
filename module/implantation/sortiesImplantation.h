#pragma once

#include <string>
#include <vector>

#include "implantation/travailImplantation.h"

/// What a job leaves behind: in the drawing and in files.

/// Draws the sketch, its upper left corner there.
void dessinerCroquis(const travailImplantation& travail, point2 place);
/// Draws setups and points for good, as the options say: one by one, a block for each setup, or one for all.
void dessinerResultats(const travailImplantation& travail);
/// Draws the section of a point's sight, the foot of the station there. @return false without one
bool dessinerCoupe(const travailImplantation& travail, const pointImplante& point, point2 place);

enum class formeFichier { html, colonnes, mots8, mots16, json };

/// @return the file's bytes; `ecartes` receives the names that the form has no room for
std::string contenuFichier(const travailImplantation& travail, formeFichier forme, std::vector<std::wstring>& ecartes);
