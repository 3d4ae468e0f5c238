#pragma once

#include <optional>
#include <QDialog>

/// A palette of the colours by index; with `byOthers` also "DuCalque" (256) and "DuBloc" (0).
class ColorDialog : public QDialog {
    Q_OBJECT

public:
    ColorDialog(int color, bool byOthers, QWidget* parent);

    int color() const { return m_color; }
    /// Nothing when the user gave up.
    static std::optional<int> ask(int color, bool byOthers, QWidget* parent);

private:
    QWidget* swatches(int first, int count, int columns);
    void choose(int color);

    int m_color;
};
