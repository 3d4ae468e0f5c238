#pragma once

/// AutoLISP functions on polylines. Arguments other than those named print "\nparametres incorrects." and give nil.

/// (getsegtype polyline vertex): what leads from a vertex (from 0) of a lightweight, 2D or 3D polyline to the next
/// one: ("LIGNE" start end), or ("ARC" start end centre radius bulge), the bulge below 0 for an arc that runs clockwise
/// seen from above. nil when there is no such segment.
int lispGetsegtype();
/// (c:TopJndre): asks "\nNumero de debut", "\nNumero de fin" and "\nIncrement [1] :", and joins the points of these
/// numbers by a polyline on the current layer: in space when all their altitudes are known, else in the plane.
int lispTopJndre();
