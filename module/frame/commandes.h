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
constexpr const wchar_t* groupeVela = L"VELA";

/// The commands of the first group, in the order of registration.
std::span<const commande> tableCommandes();
/// Those of the group "VELA", which came later.
std::span<const commande> tableCommandesVela();

void enregistrerCommandes();
void retirerCommandes();
