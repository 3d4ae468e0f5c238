#include "reports/resultPolygo.h"

#include <QLibrary>
#include <QStringList>
#include <QTextBrowser>
#include <QUrl>

#include "reports/htmlDocument.h"
#include "reports/navigateur/vueWeb.h"
#include "services/dialogueFichier.h"
#include "services/dialogueMessage.h"
#include "services/dossierModule.h"

#include "ui_resultPolygo.h"
#include "windows.h"

namespace {

/// The browser comes from a library of its own, loaded here: linked to the module, its start-up would be that of every
/// command. Null when it is not installed or cannot run.
QWidget* navigateur(QWidget* parent, const QUrl& page, const std::function<void()>& echec)
{
    static QLibrary bibliotheque(QString::fromStdString(dossierModule()) + QLatin1String("/libVelaNavigateur.so"));
    const auto creer = reinterpret_cast<creerVueWeb_t>(bibliotheque.resolve(nomCreerVueWeb));
    return creer ? creer(parent, page, echec) : nullptr;
}

} // namespace

resultPolygo::resultPolygo(std::wstring rapport, const std::vector<std::wstring>& remarques) :
    m_rapport(std::move(rapport)),
    m_ui(std::make_unique<Ui::resultPolygo>())
{
    m_ui->setupUi(this);
    m_page = m_ui->page;
    const QUrl page = QUrl::fromLocalFile(QString::fromStdWString(m_rapport));
    if (QWidget* const vue = navigateur(this, page, [this] { montrerTexte(); })) {
        delete layout()->replaceWidget(m_page, vue);
        delete std::exchange(m_page, vue);
    } else {
        montrerTexte();
    }
    QStringList textes;
    for (const std::wstring& remarque : remarques)
        textes << QString::fromStdWString(remarque);
    m_ui->remarques->setText(textes.join(u'\n'));
    m_ui->remarques->setVisible(!textes.isEmpty());
    connect(m_ui->boutonSauvegarder, &QPushButton::clicked, this, [this] { sauvegarder(); });
    connect(m_ui->boutonFermer, &QPushButton::clicked, this, &QDialog::accept);
}

resultPolygo::~resultPolygo() = default;

/// Without a browser the report is shown all the same, with simpler styles.
void resultPolygo::montrerTexte()
{
    if (qobject_cast<QTextBrowser*>(m_page))
        return;
    auto* const texte = new QTextBrowser(this);
    texte->setObjectName(QStringLiteral("page"));
    texte->setSource(QUrl::fromLocalFile(QString::fromStdWString(m_rapport)), QTextDocument::HtmlResource);
    delete layout()->replaceWidget(m_page, texte);
    std::exchange(m_page, texte)->deleteLater(); // it may be the one that called
}

/// A copy that fails is not told.
void resultPolygo::sauvegarder() const
{
    demandeFichier demande;
    demande.extension = L"html";
    if (const auto copie = demanderFichierAEcrire(demande))
        CopyFileW(m_rapport.c_str(), copie->c_str(), FALSE);
}

void ecrireEtMontrer(htmlDocument& rapport, const std::vector<std::wstring>& remarques)
{
    if (!rapport.write())
        return avertirErreur(rapportNonEcrit);
    resultPolygo(rapport.fileName().wstring(), remarques).exec();
}
