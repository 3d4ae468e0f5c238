#include <exception>
#include <iostream>

#include "generateurs/dessinChantier.h"

/// vela_exemple_chantier OUT.dxf
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: vela_exemple_chantier OUT.dxf\n";
        return 2;
    }
    try {
        ecrireDessinChantier(argv[1]);
    } catch (const std::exception& erreur) {
        std::cerr << erreur.what() << '\n';
        return 1;
    }
    return 0;
}
