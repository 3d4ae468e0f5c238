#include "ui/window/DocumentTabs.h"

#include <QSignalBlocker>

#include "ap/DocumentList.h"
#include "ed/DrawingChanges.h"

DocumentTabs::DocumentTabs(QWidget* parent) : QTabBar(parent)
{
    setObjectName(QStringLiteral("onglets"));
    setTabsClosable(true);
    setDocumentMode(true);
    setExpanding(false);
    setElideMode(Qt::ElideMiddle);
    setFocusPolicy(Qt::NoFocus);
    for (const auto& document : DocumentList::instance().documents())
        documentCreated(document.get());
    connect(this, &QTabBar::currentChanged, this, &DocumentTabs::choose);
    connect(this, &QTabBar::tabCloseRequested, this, [this](int tab) { emit closingAsked(documentOf(tab)); });
    acDocManager->addReactor(this);
}

DocumentTabs::~DocumentTabs()
{
    acDocManager->removeReactor(this);
}

int DocumentTabs::tabOf(const AcApDocument* document) const
{
    for (int tab = 0; tab < count(); ++tab)
        if (documentOf(tab) == document)
            return tab;
    return -1;
}

Document* DocumentTabs::documentOf(int tab) const
{
    return static_cast<Document*>(tabData(tab).value<void*>());
}

void DocumentTabs::documentCreated(AcApDocument* document)
{
    const QSignalBlocker quiet(this); // the first tab becomes the current one before its document does
    const int tab = addTab(QString::fromWCharArray(document->docTitle()));
    setTabData(tab, QVariant::fromValue(static_cast<void*>(static_cast<Document*>(document))));
}

void DocumentTabs::documentActivated(AcApDocument* document)
{
    {
        const QSignalBlocker quiet(this);
        setCurrentIndex(tabOf(document));
    }
    emit activated(static_cast<Document*>(document));
}

void DocumentTabs::documentToBeDestroyed(AcApDocument* document)
{
    {
        const QSignalBlocker quiet(this);
        removeTab(tabOf(document));
    }
    if (document == acDocManager->mdiActiveDocument())
        emit activated(nullptr);
}

/// The user chose a tab: the document follows when it can, else the tab goes back.
void DocumentTabs::choose(int tab)
{
    Document* const wanted = documentOf(tab);
    {
        const QSignalBlocker quiet(this);
        setCurrentIndex(tabOf(acDocManager->mdiActiveDocument()));
    }
    emit activationAsked(wanted);
}

void DocumentTabs::refresh()
{
    for (int tab = 0; tab < count(); ++tab) {
        Document& document = *documentOf(tab);
        const QString title = QString::fromWCharArray(document.docTitle());
        setTabText(tab, DrawingChanges::instance().areUnsaved(document) ? title + QStringLiteral(" *") : title);
        setTabToolTip(tab, QString::fromWCharArray(document.fileName()));
    }
}
