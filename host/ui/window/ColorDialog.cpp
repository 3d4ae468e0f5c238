#include "ui/window/ColorDialog.h"

#include <QGridLayout>
#include <QPushButton>
#include <QToolButton>

#include "db/Colors.h"
#include "gi/AciPalette.h"

ColorDialog::ColorDialog(int color, bool byOthers, QWidget* parent) : QDialog(parent), m_color(color)
{
    setObjectName(QStringLiteral("dialogueCouleur"));
    setWindowTitle(QStringLiteral("Couleur"));
    auto* const all = new QVBoxLayout(this);
    all->addWidget(swatches(1, 9, 9));
    all->addWidget(swatches(10, 240, 24));
    all->addWidget(swatches(250, 6, 6));
    auto* const buttons = new QHBoxLayout;
    if (byOthers)
        for (const int other : {colorByLayer, colorByBlock}) {
            auto* const button = new QPushButton(QString::fromStdWString(colorName(other)));
            connect(button, &QPushButton::clicked, this, [this, other] { choose(other); });
            buttons->addWidget(button);
        }
    buttons->addStretch();
    auto* const cancel = new QPushButton(QStringLiteral("Annuler"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(cancel);
    all->addLayout(buttons);
}

/// The 24 hues stand side by side, their ten shades below each other.
QWidget* ColorDialog::swatches(int first, int count, int columns)
{
    auto* const panel = new QWidget;
    auto* const grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    const int rows = count / columns;
    for (int i = 0; i < count; ++i) {
        const int index = first + i;
        auto* const button = new QToolButton;
        button->setObjectName(QStringLiteral("couleur%1").arg(index));
        button->setFixedSize(18, 18);
        button->setToolTip(QString::fromStdWString(colorName(index)));
        const QString rgb = QStringLiteral("#%1").arg(aciColor(index), 6, 16, QLatin1Char('0'));
        const QString border =
            index == m_color ? QStringLiteral("2px solid #3584e4") : QStringLiteral("1px solid #777");
        button->setStyleSheet(QStringLiteral("background: %1; border: %2;").arg(rgb, border));
        connect(button, &QToolButton::clicked, this, [this, index] { choose(index); });
        grid->addWidget(button, i % rows, i / rows);
    }
    grid->setColumnStretch(columns, 1);
    return panel;
}

void ColorDialog::choose(int color)
{
    m_color = color;
    accept();
}

std::optional<int> ColorDialog::ask(int color, bool byOthers, QWidget* parent)
{
    ColorDialog dialog(color, byOthers, parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.color();
}
