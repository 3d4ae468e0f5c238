#pragma once

/// AutoLISP functions on the current point table. Arguments other than those named print "\nparametres incorrects." and
/// give nil; so does every function that needs a table when the drawing has no project, without the message.

/// (add_pt name point [code]): adds a point to the current table, without drawing it. `point` is a list of two reals
/// (altitude unknown) or three; the code is 1 unless given. Gives T.
int lispAddPt();
/// (maxnum): one more than the largest number that begins a point name; 1 for an empty table.
int lispMaxnum();
/// (c:ZoomLeve): shows the extent of the current table, or prints "\nPas de points dans cette table".
int lispZoomLeve();
