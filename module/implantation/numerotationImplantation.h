#pragma once

#include <string>

/// How free points are numbered: prefix, number, suffix.
struct numerotationImplantation {
    std::wstring prefixe = L"A";
    int numero = 1; ///< the next one
    std::wstring suffixe;

    std::wstring nom() const { return prefixe + std::to_wstring(numero) + suffixe; }
};
