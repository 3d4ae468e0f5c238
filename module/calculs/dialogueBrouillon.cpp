#include "calculs/dialogueBrouillon.h"

#include <QComboBox>
#include <QLineEdit>
#include <QStringList>

#include "services/reglages.h"

namespace {

std::wstring cleDe(const QString& dialogue)
{
    return L"Brouillon." + dialogue.toStdWString();
}

} // namespace

QString brouillonDesChamps(const QWidget& dialogue)
{
    QStringList lignes;
    for (const auto* const champ : dialogue.findChildren<QLineEdit*>())
        if (!champ->objectName().startsWith(u"qt_") && !champ->objectName().isEmpty())
            lignes << champ->objectName() + u'=' + champ->text();
    for (const auto* const choix : dialogue.findChildren<QComboBox*>())
        lignes << choix->objectName() + u'=' + QString::number(choix->currentIndex());
    return lignes.join(u'\n');
}

void reprendreChamps(QWidget& dialogue, const QString& brouillon)
{
    for (const QString& ligne : brouillon.split(u'\n')) {
        const qsizetype egal = ligne.indexOf(u'=');
        if (egal <= 0)
            continue;
        const QString nom = ligne.left(egal), texte = ligne.mid(egal + 1);
        if (auto* const champ = dialogue.findChild<QLineEdit*>(nom))
            champ->setText(texte);
        else if (auto* const choix = dialogue.findChild<QComboBox*>(nom))
            choix->setCurrentIndex(texte.toInt());
    }
}

// The settings keep one line a value: line ends are written as letters.
QString brouillonGarde(const QString& dialogue)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(
        QByteArray::fromStdString(QString::fromStdWString(lireReglage(cleDe(dialogue).c_str(), L"")).toStdString())));
}

void garderBrouillon(const QString& dialogue, const QString& brouillon)
{
    garderReglage(cleDe(dialogue).c_str(), QString::fromLatin1(brouillon.toUtf8().toPercentEncoding()).toStdWString());
}
