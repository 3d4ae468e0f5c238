#include "mesures/memoire.h"

#include <fstream>
#include <stdexcept>
#include <string>

std::size_t memoireOccupee()
{
    std::ifstream etat("/proc/self/status");
    for (std::string mot; etat >> mot;)
        if (mot == "RssAnon:") {
            std::size_t kilooctets = 0;
            etat >> kilooctets;
            return kilooctets * 1024;
        }
    throw std::runtime_error("/proc/self/status: RssAnon is missing");
}
