#pragma once

#include "gi/DisplayList.h"
#include "gi/RecordTags.h"

/// What draws entities whose classes are not modelled, and what those share, by files. Each adds to the part that was
/// begun; a picture begins one for each of its pieces.

// ForeignGraphics.cpp
/// A line without end, or the half of one that begins at its base.
void addEndless(const AcGePoint3d& base, const AcGeVector3d& way, bool bothWays, DisplayList& list);
// LeaderGraphics.cpp
void addLeader(const RecordTags& tags, DisplayList& list);
void addMultileader(const RecordTags& tags, DisplayList& list);
// FrameGraphics.cpp: what is not painted itself shows as a frame with its name
void addTable(const RecordTags& tags, DisplayList& list);
void addImage(const RecordTags& tags, DisplayList& list);
/// A sheet or a picture of another program, within the drawing.
void addEmbedded(const RecordTags& tags, DisplayList& list);
void addWipeout(const RecordTags& tags, DisplayList& list);
void addUnderlay(const RecordTags& tags, DisplayList& list);
/// The frame of a window of a layout; what it shows is drawn by LayoutDrawing.
void addViewportFrame(const RecordTags& tags, DisplayList& list);
// KeptPicture.cpp: of any class
/// The bytes of the picture that an entity brings along; empty where it brings none.
std::string keptPicture(const RecordTags& tags);
void addKeptPicture(const AcDbEntity& entity, const RecordTags& tags, DisplayList& list);
