#pragma once

#include <QWidget>
#include <vector>

class Document;
class LayerModel;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QTableView;

/// The layers of the drawing: a click on a state switches it, one on a colour asks for another; a double click on the
/// name renames, one before it makes the layer current. A filter leaves those whose name holds its text, or matches it
/// when it has a "*" or a "?".
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
    void remove();
    void isolate();
    void followIsolation();
    void filter();
    std::vector<int> chosenRows() const;
    QPushButton* addButton(QGridLayout& grid, const char* caption, const char* name, const char* hint,
                           void (LayerPanel::*action)());

    LayerModel* m_model;
    QTableView* m_table;
    QLineEdit* m_filter;
    QPushButton* m_isolate = nullptr;
};
