#pragma once

/// AutoLISP functions on the symbols of points. Arguments other than those named print "\nparametres incorrects." and
/// give nil; without a project, functions that need the current table give nil. Symbols on locked layers stay as they
/// are, and are told at the command line.

/// (calctailleblock name): width and height of a block of the drawing, as a 2D point, its attribute definitions left
/// out; nil when there is no such block or it shows nothing.
int lispCalctailleblock();
/// (ename_pt name): the entity name of a point's symbol; nil when the current table has no such point, or it is not
/// drawn.
int lispEnamePt();
/// (tpcdaddpt name point [code [observation]]): adds a point to the current table and draws its symbol. Gives the
/// symbol's entity name; nil when the point could not be drawn (it is in the table all the same).
int lispTpcdaddpt();
/// (attrvisibility tag visible [set]): shows (T) or hides (nil) the attributes of a tag ("*": all tags) on the symbols
/// of the current table, or on those of a selection set. Gives the number of attributes that changed.
int lispAttrvisibility();
/// (modif-attrib entity tag text [tag text ...]): writes texts of attributes. Gives the number of attributes written;
/// nil when the entity is no block reference.
int lispModifAttrib();
/// (reg_pts): brings the symbols of the current table in line with their points, drawing those that are missing. Gives
/// the number of points.
int lispRegPts();
/// (updarxttxt factor): sets the size of all symbols, and sizes those of the current table anew, texts included. Gives
/// the number of symbols.
int lispUpdarxttxt();
/// (sxd entity list): gives an entity extended data of "VELAPLUS", in place of those it had: pairs (code . value), or
/// lists (code x y z); nil takes them away. Gives T, or nil after "\nErreur de entmod=%d".
int lispSxd();
/// (superpos [distance]): the points of the current table that stand nearer than `distance` (0.001 unless told) to
/// another, in the plane: a list of groups of names. Prints how many groups there are.
int lispSuperpos();
/// (c:DISSOCBLOCK): asks "\nSelectionnez les elements a dissocier" and replaces block references by the entities they
/// show; visible attributes become texts. Points that had them are no longer drawn, until it is undone.
int lispDissocblock();
