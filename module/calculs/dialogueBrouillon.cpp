#include "calculs/dialogueBrouillon.h"

#include <algorithm>
#include <iterator>
#include <QComboBox>
#include <QLineEdit>
#include <QStringList>
#include <QUuid>
#include <sstream>

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

QString nouvelleSaisie()
{
    return QUuid::createUuid().toString(QUuid::Id128);
}

std::vector<brouillon> brouillonsGardes(const QString& dialogue)
{
    std::vector<brouillon> gardes;
    for (const std::wstring& texte : textesGardes(dialogue.toStdWString())) {
        const auto octets = QByteArray::fromPercentEncoding(QString::fromStdWString(texte).toLatin1());
        const qsizetype fin = octets.indexOf('\n');
        gardes.push_back({QString::fromLatin1(octets.left(fin)), QString::fromUtf8(octets.mid(fin + 1))});
    }
    return gardes;
}

void garderBrouillons(const QString& dialogue, const std::vector<brouillon>& brouillons)
{
    std::vector<std::wstring> textes;
    for (const brouillon& b : brouillons)
        textes.push_back(b.saisie.toStdWString() + finSaisie +
                         QString::fromLatin1(b.texte.toUtf8().toPercentEncoding()).toStdWString());
    garderTextes(dialogue.toStdWString(), textes);
}

std::vector<std::wstring> textesGardes(const std::wstring& dialogue)
{
    std::wistringstream lus(lireReglage((L"Brouillon." + dialogue).c_str(), L""));
    return {std::istream_iterator<std::wstring, wchar_t>(lus), {}};
}

void garderTextes(const std::wstring& dialogue, const std::vector<std::wstring>& textes)
{
    std::wstring ligne;
    for (std::size_t i = 0; i < std::min(textes.size(), brouillonsAuPlus); ++i)
        ligne += (i > 0 ? L" " : L"") + textes[i];
    const std::wstring reglage = L"Brouillon." + dialogue;
    if (lireReglage(reglage.c_str(), L"") != ligne)
        garderReglage(reglage.c_str(), ligne);
}

bool memeSaisie(const std::wstring& a, const std::wstring& b)
{
    return saisieDe(a) == saisieDe(b);
}
