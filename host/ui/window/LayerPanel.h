#pragma once

#include <QWidget>

class Document;
class LayerModel;
class QTableView;

/// The layers of the drawing: a click on a state switches it, one on a colour asks for another; a double click on the
/// name renames, one before it makes the layer current.
class LayerPanel : public QWidget {
    Q_OBJECT

public:
    explicit LayerPanel(QWidget* parent = nullptr);

    void setDocument(Document* document);
    void refresh();

signals:
    /// The drawing was changed from here.
    void edited();

private:
    void click(const QModelIndex& at);
    void create();
    void makeCurrent();

    LayerModel* m_model;
    QTableView* m_table;
};
