#pragma once

#include <filesystem>

class tableauMesures;

/// A support folder with the library of symbols, for as long as it lives. The module looks for it once: to be made
/// first.
class bibliothequeSymboles {
public:
    bibliothequeSymboles();
    ~bibliothequeSymboles();
    bibliothequeSymboles(const bibliothequeSymboles&) = delete;
    bibliothequeSymboles& operator=(const bibliothequeSymboles&) = delete;

private:
    std::filesystem::path m_dossier;
};

/// Points between files and a drawing: survey files that become saved drawings, with and without symbols, and entities
/// that become points. Adds the rows.
void mesurerDessin(tableauMesures& tableau, int passes);
