#include "services/dialogueMessage.h"

#include <initializer_list>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "services/dialogueModule.h"

#include "acutads.h"

namespace {

struct bouton {
    const char16_t* libelle;
    QMessageBox::ButtonRole role;
};

// Captions of our own: those of the toolkit depend on the translations installed.
constexpr bouton boutonOk{u"OK", QMessageBox::AcceptRole};
constexpr bouton boutonOui{u"&Oui", QMessageBox::YesRole};
constexpr bouton boutonNon{u"&Non", QMessageBox::NoRole};
constexpr bouton boutonAnnuler{u"Annuler", QMessageBox::RejectRole};

/// Shows a box. The first button is the default one, the last one is that of Escape.
/// @return the role of the button pressed; that of the last one without windows.
QMessageBox::ButtonRole montrer(QMessageBox::Icon icone, const std::wstring& titre, const std::wstring& texte,
                                std::initializer_list<bouton> boutons)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        acutPrintf(L"\n%s : %s", titre.c_str(), texte.c_str());
        return std::prev(boutons.end())->role;
    }
    QMessageBox boite(fenetreDevant());
    boite.setIcon(icone);
    boite.setWindowTitle(QString::fromStdWString(titre));
    boite.setTextFormat(Qt::PlainText); // texts quote names of files and points, which may hold "<"
    boite.setText(QString::fromStdWString(texte));
    QPushButton* premier = nullptr;
    for (const bouton& b : boutons) {
        QPushButton* const ajoute = boite.addButton(QString::fromUtf16(b.libelle), b.role);
        premier = premier ? premier : ajoute;
        boite.setEscapeButton(ajoute);
    }
    boite.setDefaultButton(premier);
    boite.exec();
    return boite.buttonRole(boite.clickedButton());
}

} // namespace

void afficherMessage(const std::wstring& titre, const std::wstring& texte)
{
    montrer(QMessageBox::Information, titre, texte, {boutonOk});
}

void afficherAvertissement(const std::wstring& titre, const std::wstring& texte)
{
    montrer(QMessageBox::Warning, titre, texte, {boutonOk});
}

void avertirErreur(const std::wstring& texte)
{
    afficherAvertissement(L"Erreur", texte);
}

void afficherErreur(const std::wstring& titre, const std::wstring& texte)
{
    montrer(QMessageBox::Critical, titre, texte, {boutonOk});
}

bool demanderConfirmation(const std::wstring& titre, const std::wstring& texte)
{
    return montrer(QMessageBox::Question, titre, texte, {boutonOk, boutonAnnuler}) == QMessageBox::AcceptRole;
}

bool demanderOuiNon(const std::wstring& titre, const std::wstring& texte)
{
    return montrer(QMessageBox::Question, titre, texte, {boutonOui, boutonNon}) == QMessageBox::YesRole;
}

bool confirmerSuppression(const std::wstring& texte)
{
    return demanderOuiNon(L"Suppression", texte);
}

reponseQuestion demanderOuiNonAnnuler(const std::wstring& titre, const std::wstring& texte)
{
    switch (montrer(QMessageBox::Question, titre, texte, {boutonOui, boutonNon, boutonAnnuler})) {
    case QMessageBox::YesRole:
        return reponseQuestion::oui;
    case QMessageBox::NoRole:
        return reponseQuestion::non;
    default:
        return reponseQuestion::annuler;
    }
}
