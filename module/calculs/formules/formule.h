#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calculs/formules/noeudFormule.h"
#include "calculs/formules/tableVariables.h"

/// An arithmetic formula as a tree.
class formule {
public:
    /// Reads `texte` and replaces the tree, blanks and tabs aside, even inside numbers and names.
    /// @return whether all of it is a formula; otherwise the tree holds what was built before the fault.
    ///
    /// Intended, since weights already in use depend on it: + - * / nest to the right, so that 10-4-3 is 10-(4-3) = 9
    /// and 8/4/2 is 4; a sign before a parenthesis is dropped, so that -(x) is x; a sign before a number or a name
    /// binds tighter than the power; an operand that is missing is no fault.
    bool analyser(std::string_view texte);

    /// The value with these variables. Division by zero, unknown names and missing operands give 0; a power of a
    /// negative base with an integral exponent gives 1 / base^|exponent|, any other power whose base is not positive
    /// gives 0.
    /// @param retenir keeps the positions of the names found, for a table whose order does not change
    double evaluer(const tableVariables& table, bool retenir = false) const;

    /// Every operation in parentheses, constants with 4 decimals; nothing for a binary node that lacks an operand.
    std::string texte() const;

    bool vide() const { return m_racine == noeudFormule::absent; }
    const std::vector<noeudFormule>& noeuds() const { return m_noeuds; } ///< operands stand before what uses them

private:
    friend class analyseFormule;
    std::vector<noeudFormule> m_noeuds;
    std::int32_t m_racine = noeudFormule::absent;
};

/// What "Vérifer" shows for a formula: the verdict, then the tree as printed.
std::string messageVerification(std::string_view texte);
