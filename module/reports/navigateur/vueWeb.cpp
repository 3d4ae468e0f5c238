#include "reports/navigateur/vueWeb.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include <unistd.h>

namespace {

/// Read by the engine when its first page is made.
void preparerMoteur()
{
    // Its sandbox refuses to run for root. Reports are our own files, and scripts are off.
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    // Without a display there is no graphics card to ask for.
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        qputenv("QT_QUICK_BACKEND", "software");
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-gpu " + qgetenv("QTWEBENGINE_CHROMIUM_FLAGS"));
    }
}

/// A report has no links; a page asked for by any other means is not ours.
class pageRapport : public QWebEnginePage {
public:
    pageRapport(QWebEngineProfile* profil, QUrl page, QObject* parent) :
        QWebEnginePage(profil, parent),
        m_page(std::move(page))
    {
    }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override { return url == m_page; }

private:
    QUrl m_page;
};

} // namespace

extern "C" __attribute__((visibility("default"))) QWidget* velaCreerVueWeb(QWidget* parent, const QUrl& page,
                                                                           const std::function<void()>& echec)
{
    if (!QCoreApplication::testAttribute(Qt::AA_ShareOpenGLContexts))
        return nullptr;
    preparerMoteur();
    auto* const vue = new QWebEngineView(parent);
    auto* const profil = new QWebEngineProfile; // without a name nothing of it is kept
    auto* const contenu = new pageRapport(profil, page, vue);
    profil->setParent(contenu); // it must go after its page
    contenu->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    vue->setPage(contenu);
    vue->setObjectName(QStringLiteral("page"));
    vue->setContextMenuPolicy(Qt::NoContextMenu);
    QObject::connect(contenu, &QWebEnginePage::renderProcessTerminated, vue, echec);
    QObject::connect(contenu, &QWebEnginePage::loadFinished, vue, [echec](bool chargee) {
        if (!chargee)
            echec();
    });
    vue->load(page);
    return vue;
}
