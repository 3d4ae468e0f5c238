#pragma once

/// AutoLISP functions that measure and change points of the current table, or the drawing, each by a dialog. They take
/// no arguments.

/// (c:projpoly): points against a polyline.
int lispProjpoly();
/// (C:pointsParDecalage): new points along a polyline.
int lispPointsParDecalage();
/// (c:VLDEPORTPNTS): points moved.
int lispDeportPoints();
/// (c:VLAJUSTERZ): altitudes of points.
int lispAjusterZ();
/// (c:AllegerDessin): what the drawing can do without.
int lispAllegerDessin();
