#include <exception>
#include <iostream>

#include "generateurs/dessinVallon.h"

/// vela_exemple_vallon OUT.dxf
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: vela_exemple_vallon OUT.dxf\n";
        return 2;
    }
    try {
        ecrireDessinVallon(argv[1]);
    } catch (const std::exception& erreur) {
        std::cerr << erreur.what() << '\n';
        return 1;
    }
    return 0;
}
