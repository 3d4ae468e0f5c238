#include <array>
#include <charconv>
#include <iostream>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include "db/DatabaseImpl.h"
#include "gi/EntityGraphics.h"
#include "gi/LayoutDrawing.h"
#include "platform/CodePage.h"
#include "platform/LetterCase.h"
#include "ui/application/VelaApplication.h"
#include "ui/render/DrawingPicture.h"

#include "aideFrancaise.h"
#include "commandes.h"
#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "lignesConsole.h"

namespace {

struct choixApercu {
    std::string dessin;
    std::string image;
    std::string taille;
    std::string fenetre;
    std::string fond = "clair";
    std::string presentation;
};

/// Numbers parted by one character, all of them; nothing when the text is anything else.
template <class Nombre, std::size_t combien>
std::optional<std::array<Nombre, combien>> lireNombres(const std::string& texte, char separateur)
{
    std::array<Nombre, combien> nombres{};
    const char* debut = texte.data();
    const char* const fin = debut + texte.size();
    for (std::size_t i = 0; i < combien; ++i) {
        if (i > 0 && (debut == fin || *debut++ != separateur))
            return std::nullopt;
        const auto lu = std::from_chars(debut, fin, nombres[i]);
        if (lu.ec != std::errc())
            return std::nullopt;
        debut = lu.ptr;
    }
    return debut == fin ? std::optional(nombres) : std::nullopt;
}

[[noreturn]] void refuser(const char* option, const std::string& valeur, const char* attendu)
{
    throw erreurProgramme("« " + valeur + " » ne convient pas à l'option " + option + " : " + attendu + ".");
}

OverviewRequest demande(const choixApercu& choix)
{
    OverviewRequest image;
    image.file = QString::fromStdString(choix.image);
    if (!choix.taille.empty()) {
        const auto taille = lireNombres<int, 2>(choix.taille, 'x');
        if (!taille || (*taille)[0] < 1 || (*taille)[1] < 1)
            refuser("--taille", choix.taille, "largeur et hauteur en pixels sont attendues, comme 1200x800");
        image.width = (*taille)[0];
        image.height = (*taille)[1];
    }
    if (!choix.fenetre.empty()) {
        const auto coins = lireNombres<double, 4>(choix.fenetre, ',');
        if (!coins)
            refuser("--fenetre", choix.fenetre, "deux coins sont attendus, comme 100,200,150,240");
        image.window.emplace();
        image.window->add((*coins)[0], (*coins)[1]);
        image.window->add((*coins)[2], (*coins)[3]);
        if (!(image.window->width() > 0.0) || !(image.window->height() > 0.0))
            refuser("--fenetre", choix.fenetre, "ses deux coins doivent différer en x et en y");
    }
    if (choix.fond != "sombre" && choix.fond != "clair")
        refuser("--fond", choix.fond, "« sombre » ou « clair » est attendu");
    image.darkGround = choix.fond == "sombre";
    return image;
}

/// The block of the layout of that name; the names that there are when there is no such one.
AcDbObjectId presentationNommee(AcDbDatabase& base, const std::string& nom)
{
    std::string noms;
    for (const LayoutTab& onglet : paperLayouts(base)) {
        if (platform::equalNoCase(onglet.name, platform::wideFromUtf8(nom)))
            return onglet.block;
        noms += (noms.empty() ? "« " : ", « ") + platform::utf8FromWide(onglet.name) + " »";
    }
    throw erreurProgramme("pas de présentation « " + nom + " » dans ce dessin" +
                          (noms.empty() ? ", qui n'en a aucune." : " : il y a " + noms + "."));
}

/// The drawing is opened without its modules: its picture needs none.
void dessinerApercu(const choixApercu& choix)
{
    OverviewRequest image = demande(choix);
    AcDbDatabase base(false);
    if (base.readDwgFile(platform::wideFromUtf8(choix.dessin).c_str()) != Acad::eOk)
        throw erreurProgramme(platform::utf8FromWide(base.lastError()));
    avertirDesProblemes(base);
    if (!choix.presentation.empty())
        image.layout = presentationNommee(base, choix.presentation);
    if (const std::string absents = notDrawnSentence(base); !absents.empty())
        avertir(absents);
    const std::unique_ptr<VelaApplication> application = VelaApplication::make(VelaApplication::Screen::none);
    if (const QString refus = writeOverview(base, image); !refus.isEmpty())
        throw erreurProgramme(refus.toStdString());
    std::cout << choix.image << '\n';
}

} // namespace

void ajouterCommandeApercu(CLI::App& programme)
{
    CLI::App& commande =
        *programme.add_subcommand("apercu", "Dessine l'espace objet, ou une présentation, dans une image");
    commande.group(groupeCommandes);
    const auto choix = std::make_shared<choixApercu>();
    commande.add_option("DESSIN", choix->dessin, "Dessin à lire")->type_name("")->required();
    commande.add_option("-o,--image", choix->image, "Image à écrire, en « .png », « .svg » ou « .pdf »")
        ->type_name("FICHIER")
        ->required();
    commande.add_option("--taille", choix->taille, "Largeur et hauteur en pixels (1200x800)")->type_name("LxH");
    commande.add_option("--fenetre", choix->fenetre, "Deux coins de ce qui est vu (le dessin entier)")
        ->type_name("X0,Y0,X1,Y1");
    commande.add_option("--presentation", choix->presentation, "Présentation à dessiner, au lieu de l'espace objet")
        ->type_name("NOM");
    commande.add_option("--fond", choix->fond, "sombre ou clair")->type_name("FOND")->capture_default_str();
    commande.callback([choix] { dessinerApercu(*choix); });
}
