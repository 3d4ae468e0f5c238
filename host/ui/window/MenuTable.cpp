#include "ui/window/MenuTable.h"

namespace {

const MenuItem separator;

const std::vector<MenuItem> fileItems{
    {"&Nouveau", "_NEW", "Ctrl+N", "nouveau"},
    {"&Ouvrir...", "_OPEN", "Ctrl+O", "ouvrir"},
    {"Fichiers ré&cents", ":recents"},
    {"&Fermer", ":fermer", "Ctrl+W"},
    separator,
    {"&Enregistrer", "_QSAVE", "Ctrl+S", "enregistrer"},
    {"Enregistrer &sous...", "_SAVEAS", "Ctrl+Shift+S"},
    separator,
    {"Récupé&rer un dessin abîmé...", "_RECOVER"},
    {"Con&trôler le dessin", "_AUDIT"},
    separator,
    {"&Imprimer dans un fichier...", "_PLOT", "Ctrl+P"},
    {"Exécuter un scri&pt...", "_SCRIPT"},
    {"Charger une &application...", "_APPLOAD"},
    separator,
    {"&Quitter", ":quitter", "Ctrl+Q"},
};

const std::vector<MenuItem> editionItems{
    {"&Annuler", "_U", "Ctrl+Z", "annuler"},
    {"&Rétablir", "_REDO", "Ctrl+Y", "retablir"},
    separator,
    {"&Tout sélectionner", ":toutSelectionner", "Ctrl+A"},
    {"&Désélectionner", ":deselectionner"},
    separator,
    {"Renseignements sur des &objets", "_LIST"},
    {"&Coordonnées d'un point", "'_ID"},
    {"D&istance", "'_DIST"},
    {"Air&e", "_AREA"},
    separator,
    {"&Variable système...", "'_SETVAR"},
};

const std::vector<MenuItem> displayItems{
    {"Zoom &étendu", ":zoomEtendu", "Ctrl+0", "zoomEtendu"},
    {"Zoom &fenêtre", "'_ZOOM _W", "", "zoomFenetre"},
    {"Zoom &précédent", "'_ZOOM _P", "", "zoomPrecedent"},
    {"Zoom a&vant", ":zoomAvant", "Ctrl++"},
    {"Zoom a&rrière", ":zoomArriere", "Ctrl+-"},
    {"Pa&noramique", "'_PAN"},
    {"Ré&générer", "_REGEN"},
    separator,
    {"Fond &sombre", ":fondSombre"},
    {"&Historique des commandes", ":historique", "F2"},
    {"&Accrochage aux objets", ":accrochage", "F3"},
    {"Mode &ortho", ":ortho", "F8"},
    separator,
    {"&Calques", ":panneauCalques", "Ctrl+1"},
    {"Propr&iétés", ":panneauProprietes", "Ctrl+2"},
    {"&Tables de points", ":panneauPoints", "Ctrl+3"},
};

const std::vector<MenuItem> snapsItems{
    {"&Extrémité", ":accroche1"},  {"&Milieu", ":accroche2"},
    {"&Centre", ":accroche4"},     {"&Nodal (points)", ":accroche8"},
    {"&Quadrant", ":accroche16"},  {"&Intersection", ":accroche32"},
    {"In&sertion", ":accroche64"}, {"&Perpendiculaire", ":accroche128"},
    {"P&roche", ":accroche512"},
};

const std::vector<MenuItem> drawingItems{
    {"&Ligne", "_LINE", "", "ligne"}, {"&Polyligne", "_PLINE", "", "polyligne"}, {"&Cercle", "_CIRCLE", "", "cercle"},
    {"&Arc", "_ARC", "", "arc"},      {"P&oint", "_POINT", "", "point"},         separator,
    {"&Texte", "_TEXT", "", "texte"}, {"&Insérer un bloc", "_INSERT"},
};

const std::vector<MenuItem> modificationItems{
    {"&Effacer", "_ERASE", "Del", "effacer"},
    {"&Déplacer", "_MOVE", "", "deplacer"},
    {"&Copier", "_COPY", "", "copier"},
    {"&Rotation", "_ROTATE", "", "rotation"},
    {"Éc&helle", "_SCALE"},
    {"&Miroir", "_MIRROR"},
    {"Déc&omposer", "_EXPLODE"},
    separator,
    {"Ca&lques, au clavier", "_LAYER"},
    {"Re&nommer...", "_RENAME"},
};

const std::vector<MenuItem> helpItems{
    {"&Guide de l'utilisateur", ":guide", "F1"},
    {"&Commandes", ":commandes"},
    separator,
    {"À &propos de Vela", ":apropos"},
};

} // namespace

const std::vector<Menu>& menuTable()
{
    static const std::vector<Menu> menus{
        {"&Fichier", fileItems},     {"Éd&ition", editionItems}, {"&Affichage", displayItems},
        {"Acc&rochage", snapsItems}, {"&Dessin", drawingItems},  {"&Modification", modificationItems},
    };
    return menus;
}

const Menu& helpMenu()
{
    static const Menu menu{"Aid&e", helpItems};
    return menu;
}
