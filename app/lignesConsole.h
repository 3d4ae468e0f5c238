#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// Tells on the error output what went less well than it should: "Attention : ...".
void avertir(const std::string& texte);
/// Of many only the first ones: what is wrong in every line of a file is understood by then. The rest is counted.
void avertirDesPremiers(const std::vector<std::string>& textes);

/// Shows on a stream what modules and commands print. Their texts begin with a line break where those of a stream end
/// with one: a break that would only leave an empty line first is dropped.
class lignesConsole {
public:
    explicit lignesConsole(std::ostream& leFlux) : flux(leFlux) {}

    void ecrire(const std::wstring& texte);
    /// Ends the line that was begun, if any.
    void terminer();

private:
    std::ostream& flux;
    bool debutDeLigne = true;
};
