#include "services/bibliothequeModule.h"

#include <dlfcn.h>

#include "services/dossierModule.h"

void* fonctionBibliotheque(const char* bibliotheque, const char* fonction)
{
    // It stays loaded: most libraries do not bear to be taken out.
    void* const ouverte = dlopen((dossierModule() + '/' + bibliotheque).c_str(), RTLD_NOW | RTLD_LOCAL);
    return ouverte ? dlsym(ouverte, fonction) : nullptr;
}
