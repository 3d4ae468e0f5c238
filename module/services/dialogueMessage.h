#pragma once

#include <string>

// Message boxes. Without windows the text goes to the command line, and a question has the answer that changes nothing.

enum class reponseQuestion { oui, non, annuler };

/// "OK".
void afficherMessage(const std::wstring& titre, const std::wstring& texte);
/// The same with the exclamation icon.
void afficherAvertissement(const std::wstring& titre, const std::wstring& texte);
/// The same, titled "Erreur": something cannot be as the user wants it.
void avertirErreur(const std::wstring& texte);
/// The same with the icon of errors.
void afficherErreur(const std::wstring& titre, const std::wstring& texte);
/// "OK", "Annuler". @return true for OK.
bool demanderConfirmation(const std::wstring& titre, const std::wstring& texte);
/// "Oui", "Non". Escape answers no.
bool demanderOuiNon(const std::wstring& titre, const std::wstring& texte);
/// The same, titled "Suppression".
bool confirmerSuppression(const std::wstring& texte);
/// "Oui", "Non", "Annuler".
reponseQuestion demanderOuiNonAnnuler(const std::wstring& titre, const std::wstring& texte);
