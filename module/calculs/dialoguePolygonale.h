#pragma once

#include <initializer_list>
#include <QTimer>
#include <string>
#include <string_view>

#include "calculs/dialogueBrouillon.h"
#include "calculs/fichierPolygonale.h"
#include "calculs/polygonaleCalculee.h"
#include "calculs/reseau/fichierReseau.h"
#include "services/dialogueModule.h"

class CParamMisePlaceResultCalcs;
class QLineEdit;
class panneauPolygonale;

/// A traverse dialog: what the buttons do. The two kinds of traverse differ in their data only.
/// What was typed and not saved outlives it, however it ends: the next one of its kind offers it.
class dialoguePolygonale : public dialogueModule {
    Q_OBJECT

public:
    void done(int resultat) override;

protected:
    dialoguePolygonale();

    struct champNombre {
        QLineEdit* champ;
        const wchar_t* nom; ///< as sentences call it: "X", "le dernier angle"
    };
    /// Called once the widgets are there. @param champs numbers that the traverse depends on, beside the panel's
    void brancher(panneauPolygonale& panneau, std::initializer_list<champNombre> champs);

    // What is in the widgets, and what is to be there.
    virtual bilanLecture lire(std::string_view contenu) = 0; ///< the bytes of a file
    virtual std::string contenu() const = 0;
    virtual std::vector<std::wstring> perduALEcriture() const = 0; ///< see avertissementsEcriture
    virtual polygonaleCalculee calculee(htmlDocument* rapport) const = 0;
    virtual polygonaleEnReseau observations() const = 0;

private:
    void charger();
    void sauvegarder();
    void calculer();
    void comparerMoindresCarres();
    void placer();
    bool placerQuandMeme(const polygonaleCalculee& calculee) const;
    void placerStations(const polygonaleCalculee& calculee, const CParamMisePlaceResultCalcs& parametres);
    void rafraichirCroquis();
    QString saisi() const;
    void garder();
    void mettreDeCote();
    void reprendre();
    void noterEnregistre();
    bool donneesSuffisantes() const;
    std::vector<std::wstring> remarques(const polygonaleCalculee& calculee) const;
    void montrerBilan(const polygonaleCalculee& calculee, const std::vector<std::wstring>& suite = {}) const;

    panneauPolygonale* m_panneau = nullptr;
    std::vector<champNombre> m_champs;
    QTimer m_croquis;                    ///< one drawing for a run of changes
    QTimer m_garde;                      ///< and one writing of what is not saved
    QString m_enregistre;                ///< what a file, or nothing at all, has given
    QString m_saisie;                    ///< of what is typed now
    std::vector<brouillon> m_aReprendre; ///< what "Reprendre" brings, one after the other
};

// Fields of traverse dialogs.

/// What is not a number is 0.
double reelDuChamp(const QLineEdit& champ);
/// Adds the sentence on a text that is not wholly a number; an empty field is 0 and no fault. See remarqueNombre.
void remarquerChamp(const wchar_t* nomme, const QLineEdit& champ, std::vector<std::wstring>& remarques);
/// The shortest text that reads back as the value.
void montrerReel(QLineEdit& champ, double valeur);
