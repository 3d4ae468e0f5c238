#pragma once

/// AutoLISP functions on texts and files. Arguments other than those named print "\nparametres incorrects." and give
/// nil.

/// (analyse text): the list of the parts between blanks, commas, tabs and line breaks; nil when there is none.
int lispAnalyse();
/// (vldelfile path): deletes a file; T, or nil when it could not be.
int lispVldelfile();
/// (VELATEXT text ...): the text in capitals, accents included; several texts give a list.
int lispVelatext();
