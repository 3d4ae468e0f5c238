#pragma once

/// AutoLISP functions on what blocks stand for. They take no arguments.

/// (c:decrireblock): the dialog "Infos block".
int lispDecrireblock();
/// (c:tablegendes): the dialog "Table des légendes", then the place, where the legend is drawn.
int lispTablegendes();
