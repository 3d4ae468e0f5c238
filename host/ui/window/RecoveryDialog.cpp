#include "ui/window/RecoveryDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QTreeWidgetItem* rowOf(const LostDrawing& drawing)
{
    const QString when = QLocale(QLocale::French).toString(drawing.when, QStringLiteral("d MMMM yyyy à HH:mm"));
    const QString file = drawing.file.isEmpty() ? QStringLiteral("(jamais enregistré)") : drawing.file;
    auto* const row = new QTreeWidgetItem({drawing.title, when, file});
    row->setCheckState(0, Qt::Checked);
    return row;
}

} // namespace

RecoveryDialog::RecoveryDialog(const std::vector<LostDrawing>& lost, QWidget* parent) : QDialog(parent), m_lost(lost)
{
    setObjectName(QStringLiteral("dialogueRecuperation"));
    setWindowTitle(QStringLiteral("Récupération de dessins"));
    auto* const text = new QLabel(QStringLiteral(
        "La dernière session s'est arrêtée sans fermer ces dessins. Une copie de secours a été gardée de "
        "chacun : ce qui a été fait après l'heure indiquée est perdu.\n\n"
        "Un dessin récupéré s'ouvre sans fichier ; le fichier d'origine n'est remplacé que si vous "
        "l'enregistrez sous son nom."));
    text->setWordWrap(true);
    m_list = new QTreeWidget;
    m_list->setObjectName(QStringLiteral("listeRecuperation"));
    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels({QStringLiteral("Dessin"), QStringLiteral("Copie du"), QStringLiteral("Fichier")});
    for (const LostDrawing& drawing : m_lost)
        m_list->addTopLevelItem(rowOf(drawing));
    m_list->resizeColumnToContents(0);
    m_list->resizeColumnToContents(1);

    auto* const buttons = new QDialogButtonBox;
    const auto addButton = [this, buttons](const char* caption, QDialogButtonBox::ButtonRole role, Choice choice) {
        QPushButton* const button = buttons->addButton(QString::fromUtf8(caption), role);
        connect(button, &QPushButton::clicked, this, [this, choice] { end(choice); });
        return button;
    };
    addButton("Récupérer", QDialogButtonBox::AcceptRole, Choice::recover)->setDefault(true);
    addButton("Plus tard", QDialogButtonBox::RejectRole, Choice::later);
    addButton("Supprimer les copies", QDialogButtonBox::DestructiveRole, Choice::discard);

    auto* const all = new QVBoxLayout(this);
    all->addWidget(text);
    all->addWidget(m_list);
    all->addWidget(buttons);
    resize(640, 320);
}

void RecoveryDialog::end(Choice choice)
{
    m_choice = choice;
    choice == Choice::later ? reject() : accept();
}

std::vector<LostDrawing> RecoveryDialog::chosen() const
{
    std::vector<LostDrawing> drawings;
    for (std::size_t i = 0; i < m_lost.size(); ++i)
        if (m_list->topLevelItem(static_cast<int>(i))->checkState(0) == Qt::Checked)
            drawings.push_back(m_lost[i]);
    return drawings;
}
