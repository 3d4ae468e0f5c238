#pragma once

#include <cstddef>

#include "services/Uncopyable.h"

#include "adsdef.h"

/// A chain of result buffers, made item by item; it is released with this. An item that there is no memory for is
/// missing, and `ajouter` answers false.
class chaineResbuf : Uncopyable {
public:
    /// Takes a chain over (null: empty).
    explicit chaineResbuf(resbuf* prise = nullptr) : m_tete(prise) {}
    ~chaineResbuf() { prendre(nullptr); }

    /// Takes another chain over; the present one is released.
    void prendre(resbuf* autre);
    const resbuf* tete() const { return m_tete; }

    /// An item without value.
    bool ajouter(int type) { return suivant(type) != nullptr; }
    bool ajouter(int type, short valeur);
    bool ajouter(int type, int valeur);
    bool ajouter(int type, double valeur);
    bool ajouter(int type, const wchar_t* texte);
    bool ajouter(int type, const ads_point point);
    bool ajouterNom(int type, const ads_name nom);
    /// @param taille at most 32767
    bool ajouterOctets(int type, const char* octets, std::size_t taille);

private:
    resbuf* suivant(int type);

    resbuf* m_tete;
    resbuf* m_queue = nullptr; // last item, found when one is added
};
