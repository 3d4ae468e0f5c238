#include "calculs/corrPolygoDLG.h"

#include "calculs/dialoguesPolygonales.h"

#include "ui_corrPolygoDLG.h"

corrPolygoDLG::corrPolygoDLG() : m_ui(std::make_unique<Ui::corrPolygoDLG>())
{
    m_ui->setupUi(this);
    brancher(*m_ui->panneau,
             {{m_ui->editX, L"X"}, {m_ui->editY, L"Y"}, {m_ui->editZ, L"Z"}, {m_ui->editNord, L"Nord"}});
    afficher({});
}

corrPolygoDLG::~corrPolygoDLG() = default;

donneesPolygonaleFermee corrPolygoDLG::donnees() const
{
    return {{m_ui->editNumero->text().toStdWString(), reelDuChamp(*m_ui->editX), reelDuChamp(*m_ui->editY),
             reelDuChamp(*m_ui->editZ), reelDuChamp(*m_ui->editNord)},
            m_ui->panneau->unite(),
            m_ui->panneau->nivellement(),
            m_ui->panneau->lignes()};
}

void corrPolygoDLG::afficher(const donneesPolygonaleFermee& donnees)
{
    m_ui->editNumero->setText(QString::fromStdWString(donnees.depart.nom));
    montrerReel(*m_ui->editX, donnees.depart.x);
    montrerReel(*m_ui->editY, donnees.depart.y);
    montrerReel(*m_ui->editZ, donnees.depart.z);
    montrerReel(*m_ui->editNord, donnees.depart.gisement);
    m_ui->panneau->afficher(donnees.lignes, donnees.unite, donnees.nivellement);
}

bilanLecture corrPolygoDLG::lire(std::string_view contenu)
{
    donneesPolygonaleFermee lues = donnees();
    const bilanLecture bilan = lirePolygonale(contenu, lues);
    afficher(lues);
    return bilan;
}

void corrPolFermee()
{
    if (dialoguesPossibles())
        corrPolygoDLG().exec();
}
