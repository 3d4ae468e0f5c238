#include "ui/window/MenuTable.h"

#include <array>

namespace {

constexpr MenuItem separator{};

constexpr std::array file{
    MenuItem{"&Nouveau", "_NEW", "Ctrl+N", "nouveau"},
    MenuItem{"&Ouvrir...", "_OPEN", "Ctrl+O", "ouvrir"},
    MenuItem{"Fichiers &récents", ":recents"},
    MenuItem{"&Fermer", ":fermer", "Ctrl+W"},
    separator,
    MenuItem{"&Enregistrer", "_QSAVE", "Ctrl+S", "enregistrer"},
    MenuItem{"Enregistrer &sous...", "_SAVEAS", "Ctrl+Shift+S"},
    separator,
    MenuItem{"&Imprimer dans un fichier...", "_PLOT", "Ctrl+P"},
    MenuItem{"Exécuter un s&cript...", "_SCRIPT"},
    MenuItem{"Charger une &application...", "_APPLOAD"},
    separator,
    MenuItem{"&Quitter", ":quitter", "Ctrl+Q"},
};

constexpr std::array edition{
    MenuItem{"&Annuler", "_U", "Ctrl+Z", "annuler"},
    MenuItem{"&Rétablir", "_REDO", "Ctrl+Y", "retablir"},
    separator,
    MenuItem{"&Tout sélectionner", ":toutSelectionner", "Ctrl+A"},
    MenuItem{"&Désélectionner", ":deselectionner"},
    separator,
    MenuItem{"Renseignements sur des &objets", "_LIST"},
    MenuItem{"&Coordonnées d'un point", "'_ID"},
    MenuItem{"D&istance", "'_DIST"},
    MenuItem{"Ai&re", "_AREA"},
    separator,
    MenuItem{"&Variable système...", "'_SETVAR"},
};

constexpr std::array display{
    MenuItem{"Zoom &étendu", ":zoomEtendu", "Ctrl+0", "zoomEtendu"},
    MenuItem{"Zoom &fenêtre", "'_ZOOM _W", nullptr, "zoomFenetre"},
    MenuItem{"Zoom &précédent", "'_ZOOM _P", nullptr, "zoomPrecedent"},
    MenuItem{"Zoom a&vant", ":zoomAvant", "Ctrl++"},
    MenuItem{"Zoom a&rrière", ":zoomArriere", "Ctrl+-"},
    MenuItem{"Pa&noramique", "'_PAN"},
    MenuItem{"Ré&générer", "_REGEN"},
    separator,
    MenuItem{"Fond &sombre", ":fondSombre"},
    MenuItem{"&Historique des commandes", ":historique", "F2"},
    MenuItem{"&Accrochage aux objets", ":accrochage", "F3"},
    MenuItem{"Mode &ortho", ":ortho", "F8"},
    separator,
    MenuItem{"&Calques", ":panneauCalques", "Ctrl+1"},
    MenuItem{"Pr&opriétés", ":panneauProprietes", "Ctrl+2"},
    MenuItem{"&Tables de points", ":panneauPoints", "Ctrl+3"},
};

constexpr std::array drawing{
    MenuItem{"&Ligne", "_LINE", nullptr, "ligne"},     MenuItem{"&Polyligne", "_PLINE", nullptr, "polyligne"},
    MenuItem{"&Cercle", "_CIRCLE", nullptr, "cercle"}, MenuItem{"&Arc", "_ARC", nullptr, "arc"},
    MenuItem{"P&oint", "_POINT", nullptr, "point"},    separator,
    MenuItem{"&Texte", "_TEXT", nullptr, "texte"},     MenuItem{"&Insérer un bloc", "_INSERT"},
};

constexpr std::array modification{
    MenuItem{"&Effacer", "_ERASE", "Del", "effacer"},
    MenuItem{"&Déplacer", "_MOVE", nullptr, "deplacer"},
    MenuItem{"&Copier", "_COPY", nullptr, "copier"},
    MenuItem{"&Rotation", "_ROTATE", nullptr, "rotation"},
    MenuItem{"É&chelle", "_SCALE"},
    MenuItem{"&Miroir", "_MIRROR"},
    MenuItem{"Déc&omposer", "_EXPLODE"},
    separator,
    MenuItem{"Ca&lques, au clavier", "_LAYER"},
    MenuItem{"Re&nommer...", "_RENAME"},
};

constexpr std::array survey{
    MenuItem{"&Importer des points...", "IMPORTPOINTS"},
    MenuItem{"&Exporter des points...", "EXPORTPOINTS"},
    MenuItem{"&Table de coordonnées...", "TABLEXYZ"},
    MenuItem{"&Mettre à jour les points...", "MAJPOINTS"},
    MenuItem{"&Coordonnées XYZ...", "COORDSXYZ"},
    MenuItem{"Points en &3D", "PTSEN3D"},
    separator,
    MenuItem{"Co&dification...", "VCODIFICATION"},
    separator,
    MenuItem{"Polygonale &fermée...", "CORRPOLFERMEE"},
    MenuItem{"Polygonale &ouverte...", "CORRPOLOUVERTE"},
    MenuItem{"Moindres ca&rrés...", "CORRMCARRES"},
    separator,
    MenuItem{"I&mplantation...", "IMPLANT2"},
    MenuItem{"Carro&yage", "CARROYAGE"},
    MenuItem{"Rectangle par trois &points", "RECT3PT"},
};

constexpr std::array menus{
    Menu{"&Fichier", file},   Menu{"É&dition", edition},           Menu{"&Affichage", display},
    Menu{"&Dessin", drawing}, Menu{"&Modification", modification}, Menu{"&Topographie", survey},
};

} // namespace

std::span<const Menu> menuTable()
{
    return menus;
}
