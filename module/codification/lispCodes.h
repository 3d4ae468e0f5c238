#pragma once

/// AutoLISP functions on the table of codes and on the codes of points. Arguments other than those named print
/// "\nparametres incorrects." and give nil; without a project, functions that need the current table give nil.

/// (loadcodept): list of the codes, in the order of the table, each a pair (number . label).
int lispLoadcodept();
/// (addcodept code [label [path [size [decimals]]]]): adds a code, labelled "Code N" unless told otherwise, and saves
/// the table. Gives the number; nil when it is outside 1 to 9999 or taken, or when the path is relative and none of a
/// block of the library. Sizes and decimals are held to what the dialog takes.
int lispAddcodept();
/// (resetcodespts [code]): gives every point of the current table code 1, or `code`, and its symbol the look of it.
/// Gives the number of points whose code changed.
int lispResetcodespts();
/// (chgreppts code path): names another drawing file as the block of a code, saves the table, and gives that block to
/// the symbols of the current table's points of the code. Gives their number; nil, with nothing changed, when the file
/// cannot be had as a block, or the path is relative and none of a block of the library: codes are for every drawing.
int lispChgreppts();
/// (c:vcode): asks "\nCode des points a visualiser:" and shows the extent of the current table's points of that code.
int lispVcode();
