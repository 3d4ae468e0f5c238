#include "ui/window/LayoutTabs.h"

#include <QSignalBlocker>

#include "ap/Document.h"
#include "db/DatabaseImpl.h"

namespace {

/// Every drawing has a paper space: one that was never used is no layout to look at.
bool isUsed(AcDbDatabase& database, const LayoutTab& layout)
{
    return !database.impl().blocks().of(layout.block.stub()).entities.empty();
}

} // namespace

LayoutTabs::LayoutTabs(QWidget* parent) : QTabBar(parent)
{
    setObjectName(QStringLiteral("presentations"));
    setShape(QTabBar::RoundedSouth);
    setDocumentMode(true);
    setExpanding(false);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QTabBar::currentChanged, this, [this](int tab) {
        emit chosen(tab > 0 ? m_layouts[static_cast<std::size_t>(tab) - 1].block : AcDbObjectId());
    });
}

void LayoutTabs::setDocument(Document* document)
{
    {
        const QSignalBlocker quiet(this);
        while (count() > 0)
            removeTab(0);
        m_layouts.clear();
        addTab(QStringLiteral("Objet"));
        if (document)
            for (const LayoutTab& layout : paperLayouts(*document->database()))
                if (isUsed(*document->database(), layout)) {
                    m_layouts.push_back(layout);
                    addTab(QString::fromStdWString(layout.name));
                }
        setCurrentIndex(0);
    }
    setVisible(!m_layouts.empty());
    emit chosen(AcDbObjectId());
}
