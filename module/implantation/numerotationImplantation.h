#pragma once

#include <string>

/// How free points are numbered: prefix, number, suffix.
struct numerotationImplantation {
    std::wstring prefixe = L"A";
    int numero = 1; ///< the next one, from 0 to the greatest that is typed
    std::wstring suffixe;

    static constexpr int plusGrandNumero = 999999999;

    std::wstring nom() const { return prefixe + std::to_wstring(numero) + suffixe; }
};
