#include "services/utf8.h"

#include <algorithm>

std::string enUtf8(const CString& texte)
{
    const int longueur = texte.GetLength();
    std::string octets(static_cast<std::size_t>(longueur) * 4, '\0'); // four bytes hold any character
    const int ecrits = longueur == 0 ? 0
                                     : WideCharToMultiByte(CP_UTF8, 0, texte, longueur, octets.data(),
                                                           static_cast<int>(octets.size()), nullptr, nullptr);
    octets.resize(static_cast<std::size_t>(std::max(ecrits, 0)));
    return octets;
}

CString deUtf8(const char* octets)
{
    const int longueur = MultiByteToWideChar(CP_UTF8, 0, octets, -1, nullptr, 0); // with the terminating zero
    if (longueur <= 1)
        return {};
    CString texte;
    MultiByteToWideChar(CP_UTF8, 0, octets, -1, texte.GetBuffer(longueur), longueur);
    texte.ReleaseBuffer();
    return texte;
}

bool estUtf8(const std::string& octets)
{
    return octets.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, octets.data(),
                                                 static_cast<int>(octets.size()), nullptr, 0) > 0;
}
