// Fuzz target of the code files: any bytes can be read as XML or as text; a table that was read is written, and read
// again it is the same.

#include <cstdint>
#include <cstdlib>
#include <sstream>

#include "codification/xmlCodification.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* octets, std::size_t taille)
{
    const std::string contenu(octets, octets + taille);
    std::vector<codifPoint> lus;
    if (codesDeXml(contenu, lus)) {
        std::vector<codifPoint> relus;
        const std::string ecrit = xmlDeCodes(lus);
        if (!codesDeXml(ecrit, relus) || relus.size() != lus.size())
            std::abort();
    }
    std::istringstream texte(contenu);
    codifPoint code;
    while (code.lireTexte(texte)) {
        std::ostringstream ecrit;
        code.ecrireTexte(ecrit);
        std::istringstream encore(ecrit.str());
        codifPoint relu;
        if (!relu.lireTexte(encore) || relu.code != code.code)
            std::abort();
    }
    return 0;
}
