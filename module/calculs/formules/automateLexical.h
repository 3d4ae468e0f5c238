#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// A small finite automaton that takes a token from a text. State 0 starts.
class automateLexical {
public:
    /// Adds a transition on the characters `bas` to `haut`; with `final`, its from state becomes a final one.
    void ajouter(std::int32_t de, unsigned char bas, unsigned char haut, std::int32_t vers, bool final = false);

    struct element {
        std::size_t longueur = 0; ///< characters taken
        bool accepte = false;     ///< whether the run stopped in a final state
    };
    /// Runs on `texte` from `position`. Letters a to z count as capitals; of the transitions that fit, the one added
    /// first is taken.
    element lire(std::string_view texte, std::size_t position) const;

private:
    struct transition {
        std::int32_t de;
        unsigned char bas, haut;
        std::int32_t vers;
    };
    std::vector<transition> m_transitions;
    std::vector<std::int32_t> m_finaux;
};

/// Numbers: "12", "1.", ".5", "1.5E3", "2e-7"; refused: "1E". A full stop needs a digit after it before an exponent:
/// "1.E5" stops after "1.".
const automateLexical& automateNombre();
/// Names: a letter A to Z, then letters and digits; no underscore, no accent.
const automateLexical& automateIdentificateur();
