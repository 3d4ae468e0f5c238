#pragma once

#include <span>

#include "adesk.h"

/// One command that the module adds to the host.
struct commande {
    const wchar_t* nom; // global and local name alike
    Adesk::Int32 drapeaux;
    void (*executer)();
};

constexpr const wchar_t* groupeCommandes = L"QUARVEL4";

/// The commands, in the order of registration.
std::span<const commande> tableCommandes();

void enregistrerCommandes();
void retirerCommandes();
