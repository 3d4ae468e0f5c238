#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "db/DatabaseImpl.h"
#include "db/DrawingAudit.h"
#include "platform/CodePage.h"

#include "aideFrancaise.h"
#include "commandes.h"
#include "erreurProgramme.h"
#include "fichierDessin.h"
#include "lignesConsole.h"

namespace {

struct choixConvertir {
    std::string source;
    std::string cible;
    bool binaire = false;
    bool ascii = false;
    bool reparer = false;
};

/// The form of the new file: that of the old one unless asked otherwise.
DxfForm formeCible(const DxfForm& source, const choixConvertir& choix)
{
    DxfForm forme = source;
    if (choix.binaire || choix.ascii) {
        forme.binary = choix.binaire;
        forme.oneByteCodes = false;
    }
    return forme;
}

void afficherBilan(const AcDbDatabaseImpl& dessin, const choixConvertir& choix, const DxfForm& forme)
{
    for (const std::string& probleme : dessin.problems().all())
        avertir(probleme);
    const int ancienne = dessin.file().versionOnDisk();
    if (ancienne != forme.version)
        std::cout << "Dessin " << nomVersion(ancienne) << " mis à niveau : " << nomVersion(forme.version) << ".\n";
    std::cout << choix.cible << " : DXF " << (forme.binary ? "binaire" : "texte") << " " << nomVersion(forme.version)
              << " (AC" << forme.version << ")\n";
}

/// Tells what is wrong and takes out what cannot be read; what opening found is told when all is done.
void reparer(AcDbDatabase& base)
{
    const DrawingAudit controle = audit(base);
    const DrawingRepair fait = repair(base);
    for (std::size_t i = base.impl().problems().all().size(); i < controle.faults.size(); ++i)
        avertir(controle.faults[i]);
    for (const auto* touches : {&fait.gone, &fait.mended, &fait.astray})
        for (const std::string& touche : *touches)
            avertir(touche);
    std::cout << controle.objects - fait.gone.size() << " objets repris sur " << controle.objects << ".\n";
}

/// The drawing is opened without its modules: they would store their data in it.
void convertir(const choixConvertir& choix)
{
    exigerExtensionDxf(choix.cible);
    AcDbDatabase base(false);
    const auto refuser = [&base] { throw erreurProgramme(platform::utf8FromWide(base.lastError())); };
    if (base.readDwgFile(platform::wideFromUtf8(choix.source).c_str()) != Acad::eOk)
        refuser();
    if (choix.reparer)
        reparer(base);
    const DxfForm forme = formeCible(base.impl().form(), choix);
    if (base.impl().save(platform::wideFromUtf8(choix.cible), forme) != Acad::eOk)
        refuser();
    afficherBilan(base.impl(), choix, forme);
}

} // namespace

void ajouterCommandeConvertir(CLI::App& programme)
{
    CLI::App& commande = *programme.add_subcommand("convertir", "Ouvre un dessin et l'enregistre sous un autre nom");
    commande.group(groupeCommandes);
    const auto choix = std::make_shared<choixConvertir>();
    commande.add_option("A", choix->source, "Dessin à lire (DXF ou DWG)")->type_name("")->required();
    commande.add_option("B", choix->cible, "Dessin à écrire, en « .dxf » (l'ancien est gardé en « .bak »)")
        ->type_name("")
        ->required();
    CLI::Option* const binaire = commande.add_flag("--binaire", choix->binaire, "Écrit du DXF binaire");
    commande.add_flag("--reparer", choix->reparer,
                      "Reprend d'un dessin abîmé tout ce qui peut se lire, laisse le reste et en donne la liste");
    commande.add_flag("--ascii", choix->ascii, "Écrit du DXF texte")->excludes(binaire);
    commande.callback([choix] { convertir(*choix); });
}
