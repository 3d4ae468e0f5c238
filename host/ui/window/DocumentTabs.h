#pragma once

#include <QTabBar>

#include "acdocman.h"

class Document;

/// A tab for each open document, whoever opened it; the active one is in front. A star marks what is not saved.
class DocumentTabs : public QTabBar, private AcApDocManagerReactor {
    Q_OBJECT

public:
    explicit DocumentTabs(QWidget* parent = nullptr);
    ~DocumentTabs() override;

    /// Names and stars, as they are now.
    void refresh();

signals:
    /// Another document is in front; null when the one in front is about to go.
    void activated(Document* document);
    /// The user wants this.
    void activationAsked(Document* document);
    void closingAsked(Document* document);

private:
    void documentCreated(AcApDocument* document) override;
    void documentActivated(AcApDocument* document) override;
    void documentToBeDestroyed(AcApDocument* document) override;
    int tabOf(const AcApDocument* document) const;
    Document* documentOf(int tab) const;
    void choose(int tab);
};
