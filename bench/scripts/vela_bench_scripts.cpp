#include <QDialog>
#include <QFile>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <stdexcept>

#include "ap/DocumentList.h"
#include "commands/CommandTable.h"
#include "ed/Kernel.h"
#include "mesures/lancement.h"
#include "mesures/mediane.h"
#include "mesures/tableauMesures.h"
#include "rx/Console.h"
#include "ui/application/VelaApplication.h"
#include "ui/script/ScriptRunner.h"

#include "accmd.h"

/// Scripts of growing length, in a drawing that grows with them: what a line costs must not depend on how many there
/// are.

namespace {

/// The command BANC: a dialog with the fields of a form.
void ouvrirDialogue()
{
    QDialog dialogue;
    auto* const formulaire = new QFormLayout(&dialogue);
    for (int i = 1; i <= 20; ++i)
        formulaire->addRow(QStringLiteral("Champ %1").arg(i), new QLineEdit);
    auto* const fermer = new QPushButton("Fermer");
    QObject::connect(fermer, &QPushButton::clicked, &dialogue, &QDialog::accept);
    formulaire->addRow(fermer);
    dialogue.exec();
}

class banc {
public:
    explicit banc(int passes) : m_passes(passes)
    {
        Console::instance().setSink([this](const std::wstring& texte) { m_imprime += texte.size(); });
        registerHostCommands();
        acedRegCmds->addCommand(L"BANCS", L"BANC", L"BANC", ACRX_CMD_MODAL, ouvrirDialogue);
    }
    ~banc()
    {
        DocumentList::instance().closeAll();
        Console::instance().setSink({});
    }
    banc(const banc&) = delete;
    banc& operator=(const banc&) = delete;

    bool mesurer()
    {
        m_tableau.enTete();
        m_tableau.croissance("commands that draw a line", [&](int n) {
            return executer(repeter(n, "_LINE %1,0 %1,10\n\n") + QStringLiteral("? entités LINE = %1\n").arg(n));
        });
        m_tableau.croissance("AutoLISP expressions",
                             [&](int n) { return executer(repeter(n, "(setq a (* %1 2.5))\n")); });
        m_tableau.croissance("checks of AutoLISP values",
                             [&](int n) { return executer(repeter(n, "? (* %1 2) ≠ 1\n")); });
        m_tableau.croissance("fields of a dialog",
                             [&](int n) { return executer("BANC\n" + repeter(n, "Champ 17 = %1\n") + "[Fermer]\n"); });
        return m_tableau.tenu();
    }

private:
    static QString repeter(int n, const char* ligne)
    {
        QString texte;
        for (int i = 0; i < n; ++i)
            texte += QString(ligne).arg(i);
        return texte;
    }

    double executer(const QString& lignes)
    {
        const QString chemin = m_dossier.filePath("banc.scr");
        QFile fichier(chemin);
        if (!fichier.open(QIODevice::WriteOnly) || fichier.write(lignes.toUtf8()) < 0)
            throw std::runtime_error("the script could not be written");
        fichier.close();
        return mediane(
            m_passes,
            [] {
                DocumentList::instance().closeAll();
                DocumentList::instance().create();
            },
            [&] {
                if (const auto echec = ScriptRunner({}).run(chemin))
                    throw std::runtime_error(echec->toStdString());
            });
    }

    int m_passes;
    std::size_t m_imprime = 0;
    std::unique_ptr<VelaApplication> m_application = VelaApplication::make(VelaApplication::Screen::none);
    Kernel m_noyau;
    QTemporaryDir m_dossier;
    tableauMesures m_tableau{{100, 1000, 10000}, "line"};
};

} // namespace

/// vela_bench_scripts [--runs N]; exit status 1 when a bar is not held.
int main(int argc, char** argv)
{
    return lancerMesures(argc, argv, "Scripts of 100 to 10 000 lines.", 3,
                         [](int passes) { return banc(passes).mesurer(); });
}
