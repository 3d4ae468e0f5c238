#pragma once

#include <QTabBar>
#include <vector>

#include "gi/LayoutDrawing.h"

class Document;

/// Model space and the layouts of the current drawing, a tab each; hidden for a drawing without layouts worth a tab.
class LayoutTabs : public QTabBar {
    Q_OBJECT

public:
    explicit LayoutTabs(QWidget* parent = nullptr);

    /// Model space is chosen again. Null for none.
    void setDocument(Document* document);

signals:
    /// The null id stands for model space.
    void chosen(AcDbObjectId block);

private:
    std::vector<LayoutTab> m_layouts;
};
