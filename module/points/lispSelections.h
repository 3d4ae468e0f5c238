#pragma once

/// AutoLISP functions that give the symbols of points as selection sets: nil when there is none. Arguments other than
/// those named print "\nparametres incorrects." and give nil; so does a drawing without project, without the message.

/// (select_all): the symbols of every point of the current table.
int lispSelectAll();
/// (seloncode code): those of the points of a code.
int lispSeloncode();
/// (selonnum first [last]): those of the points whose name is a number from `first` to `last` (to `first` unless told).
/// (selonnum names): those of the points named by a text: names, patterns as in wcmatch and ranges "10-20", between
/// commas, in any letter case.
int lispSelonnum();
