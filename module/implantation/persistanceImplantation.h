#pragma once

class AcDbDatabase;
class travailImplantation;

/// The job in the drawing: the xrecord "VELA_IMPLANTATION" of its named objects, so that it can be taken up again.
/// Obstacles stand on their entities.

/// Fills an empty job with the one that the drawing keeps. @return false, the job as it was, when there is none or it
/// cannot be read, which is told at the command line
bool reprendreTravail(const AcDbDatabase& dessin, travailImplantation& travail);
/// Keeps points, the setups that have points, options and heights. Of an empty job nothing is kept.
/// @return false when the drawing refuses it
bool garderTravail(AcDbDatabase& dessin, const travailImplantation& travail);
