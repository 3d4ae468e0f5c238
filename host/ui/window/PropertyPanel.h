#pragma once

#include <QWidget>
#include <vector>

#include "ui/window/EntityProperties.h"

class Document;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

/// What is selected: its kinds, and the properties that all of it has. A double click, or F2, changes one.
class PropertyPanel : public QWidget {
    Q_OBJECT

public:
    explicit PropertyPanel(QWidget* parent = nullptr);

    void setDocument(Document* document);
    /// Reads the selection again; later, when the panel is not seen.
    void refresh();

signals:
    /// The drawing was changed from here.
    void edited();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void fill();
    QTreeWidgetItem* groupItem(const QString& name);
    void change(QTreeWidgetItem* item);
    static QString summary(const std::vector<AcDbObjectId>& selected);

    Document* m_document = nullptr;
    std::vector<EntityProperty> m_properties;
    QLabel* m_summary;
    QTreeWidget* m_tree;
    bool m_filling = false;
    bool m_stale = true;
};
