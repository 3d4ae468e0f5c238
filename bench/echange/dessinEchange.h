#pragma once

class tableauMesures;

/// Points between files and a drawing: survey files that become saved drawings, with and without symbols, and entities
/// that become points. Adds the rows.
void mesurerDessin(tableauMesures& tableau, int passes);
