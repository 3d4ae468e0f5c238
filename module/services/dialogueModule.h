#pragma once

#include <memory>
#include <QDialog>
#include <QPoint>
#include <QPointer>
#include <vector>

#include "services/Uncopyable.h"

/// Whether dialogs can be shown. When they cannot (a job of the command line, without windows), says so on the command
/// line. A command asks it before it makes its first dialog: without an application no widget may be made.
bool dialoguesPossibles();

/// The window that a new dialog stands on: the dialog on top, else the active window; may be null.
QWidget* fenetreDevant();

/// For as long as it lives, the modal dialogs step aside, so that the user reaches the drawing. They come back in their
/// order, each in its place, with the focus where it was. Their exec() goes on all the while.
class dialoguesEnRetrait : Uncopyable {
public:
    dialoguesEnRetrait();
    ~dialoguesEnRetrait();

private:
    struct retire {
        QPointer<QWidget> fenetre; // may be closed meanwhile, with its parent
        QPointer<QWidget> focus;
        QPoint place;
    };
    std::vector<retire> retires; // the one on top first
};

/// The widgets of a template, laid in the dialog.
template <class Ui>
std::unique_ptr<Ui> disposer(QDialog& dialogue)
{
    auto ui = std::make_unique<Ui>();
    ui->setupUi(&dialogue);
    return ui;
}

/// What the dialogs of the module are built on: modal, over the window in front.
class dialogueModule : public QDialog {
public:
    explicit dialogueModule(QWidget* parent = fenetreDevant());

    /// Runs a pick in the drawing (a call of acedGetPoint, acedSSGet...) while the dialogs step aside, and gives what
    /// it gives. They come back whatever its end: an answer, a cancel, an exception.
    template <typename Saisie>
    static auto saisirDansDessin(Saisie&& saisie)
    {
        const dialoguesEnRetrait retrait;
        return saisie();
    }
};
