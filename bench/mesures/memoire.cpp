#include "mesures/memoire.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace {

std::size_t octetsDe(const std::string& ligne)
{
    std::ifstream etat("/proc/self/status");
    for (std::string mot; etat >> mot;)
        if (mot == ligne) {
            std::size_t kilooctets = 0;
            etat >> kilooctets;
            return kilooctets * 1024;
        }
    throw std::runtime_error("/proc/self/status: " + ligne + " is missing");
}

} // namespace

std::size_t memoireOccupee()
{
    return octetsDe("RssAnon:");
}

std::size_t sommetMemoire()
{
    return octetsDe("VmHWM:");
}

void oublierSommetMemoire()
{
    std::ofstream("/proc/self/clear_refs") << 5; // the mark goes down to what is held now
}
