#include "services/variablesHote.h"

#include "aced.h"

bool lireVariable(const wchar_t* nom, std::wstring& valeur)
{
    resbuf lue{};
    if (acedGetVar(nom, &lue) != RTNORM || lue.restype != RTSTR)
        return false;
    valeur = lue.resval.rstring;
    acutDelString(lue.resval.rstring);
    return true;
}

bool lireVariable(const wchar_t* nom, double& valeur)
{
    resbuf lue{};
    if (acedGetVar(nom, &lue) != RTNORM || lue.restype != RTREAL)
        return false;
    valeur = lue.resval.rreal;
    return true;
}

bool lireVariable(const wchar_t* nom, int& valeur)
{
    resbuf lue{};
    if (acedGetVar(nom, &lue) != RTNORM || lue.restype != RTSHORT)
        return false;
    valeur = lue.resval.rint;
    return true;
}

bool lireVariable(const wchar_t* nom, AcGePoint3d& valeur)
{
    resbuf lue{};
    if (acedGetVar(nom, &lue) != RTNORM || (lue.restype != RTPOINT && lue.restype != RT3DPOINT))
        return false;
    valeur.set(lue.resval.rpoint[0], lue.resval.rpoint[1], lue.restype == RT3DPOINT ? lue.resval.rpoint[2] : 0.0);
    return true;
}
