#include "calculs/dialogueBrouillon.h"

#include <QComboBox>
#include <QLineEdit>
#include <QStringList>
#include <QUuid>

#include "services/reglages.h"

namespace {

constexpr const wchar_t* finSaisie = L"%0A"; // a line end: the settings keep one line a value

std::wstring saisieDe(const std::wstring& texte)
{
    return texte.substr(0, texte.find(finSaisie));
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

QString brouillonGarde(const QString& dialogue)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(
        QByteArray::fromStdString(QString::fromStdWString(texteGarde(dialogue.toStdWString())).toStdString())));
}

void garderBrouillon(const QString& dialogue, const QString& brouillon)
{
    const std::wstring nom = dialogue.toStdWString();
    if (brouillon.isEmpty())
        return garderTexte(nom, L"");
    const std::wstring avant = saisieDe(texteGarde(nom));
    const std::wstring saisie = avant.empty() ? QUuid::createUuid().toString(QUuid::Id128).toStdWString() : avant;
    garderTexte(nom, saisie + finSaisie + QString::fromLatin1(brouillon.toUtf8().toPercentEncoding()).toStdWString());
}

std::wstring texteGarde(const std::wstring& dialogue)
{
    return lireReglage((L"Brouillon." + dialogue).c_str(), L"");
}

void garderTexte(const std::wstring& dialogue, const std::wstring& texte)
{
    garderReglage((L"Brouillon." + dialogue).c_str(), texte);
}

bool memeSaisie(const std::wstring& a, const std::wstring& b)
{
    return saisieDe(a) == saisieDe(b);
}
