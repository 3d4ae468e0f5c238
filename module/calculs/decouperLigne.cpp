#include "calculs/decouperLigne.h"

#include <algorithm>

void decouperLigne(std::wstring_view ligne, std::wstring_view separateurs, std::vector<std::wstring>& elements)
{
    elements.clear();
    if (ligne.empty() || ligne.front() == L'*')
        return;
    std::size_t position = 0;
    while ((position = ligne.find_first_not_of(separateurs, position)) != std::wstring_view::npos) {
        const bool guillemets = ligne[position] == L'"';
        if (guillemets)
            ++position;
        std::size_t fin = guillemets ? ligne.find(L'"', position) : ligne.find_first_of(separateurs, position);
        fin = std::min(fin, ligne.size());
        if (fin > position)
            elements.emplace_back(ligne.substr(position, fin - position));
        position = std::min(guillemets ? fin + 1 : fin, ligne.size());
    }
}

std::wstring pasCompris(const std::wstring& mot)
{
    return L"« " + mot + L" » n'est pas compris.";
}
