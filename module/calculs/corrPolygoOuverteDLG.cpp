#include "calculs/corrPolygoOuverteDLG.h"

#include "calculs/CCalcGisementDlg.h"
#include "calculs/dialoguesPolygonales.h"

#include "ui_corrPolygoOuverteDLG.h"

corrPolygoOuverteDLG::corrPolygoOuverteDLG() : m_ui(std::make_unique<Ui::corrPolygoOuverteDLG>())
{
    m_ui->setupUi(this);
    const champsStation d = champsDepart(), a = champsArrivee();
    connect(m_ui->boutonCalDepart, &QPushButton::clicked, this, [this, d] { calculerGisement(d); });
    connect(m_ui->boutonCalArrivee, &QPushButton::clicked, this, [this, a] { calculerGisement(a); });
    brancher(*m_ui->panneau, {{d.x, L"X du départ"},
                              {d.y, L"Y du départ"},
                              {d.z, L"Z du départ"},
                              {d.gisement, L"le gisement de départ"},
                              {a.x, L"X de l'arrivée"},
                              {a.y, L"Y de l'arrivée"},
                              {a.z, L"Z de l'arrivée"},
                              {a.gisement, L"le gisement d'arrivée"},
                              {m_ui->editDernierAngle, L"le dernier angle"}});
    afficher({});
}

corrPolygoOuverteDLG::~corrPolygoOuverteDLG() = default;

corrPolygoOuverteDLG::champsStation corrPolygoOuverteDLG::champsDepart() const
{
    return {m_ui->editNumeroDepart, m_ui->editXDepart, m_ui->editYDepart, m_ui->editZDepart, m_ui->editGisementDepart};
}

corrPolygoOuverteDLG::champsStation corrPolygoOuverteDLG::champsArrivee() const
{
    return {m_ui->editNumeroArrivee, m_ui->editXArrivee, m_ui->editYArrivee, m_ui->editZArrivee,
            m_ui->editGisementArrivee};
}

stationPolygonale corrPolygoOuverteDLG::station(const champsStation& champs)
{
    return {champs.numero->text().toStdWString(), reelDuChamp(*champs.x), reelDuChamp(*champs.y),
            reelDuChamp(*champs.z), reelDuChamp(*champs.gisement)};
}

void corrPolygoOuverteDLG::afficherStation(const champsStation& champs, const stationPolygonale& station)
{
    champs.numero->setText(QString::fromStdWString(station.nom));
    montrerReel(*champs.x, station.x);
    montrerReel(*champs.y, station.y);
    montrerReel(*champs.z, station.z);
    montrerReel(*champs.gisement, station.gisement);
}

donneesPolygonaleOuverte corrPolygoOuverteDLG::donnees() const
{
    return {station(champsDepart()), station(champsArrivee()),     reelDuChamp(*m_ui->editDernierAngle),
            m_ui->panneau->unite(),  m_ui->panneau->nivellement(), m_ui->panneau->lignes()};
}

void corrPolygoOuverteDLG::afficher(const donneesPolygonaleOuverte& donnees)
{
    afficherStation(champsDepart(), donnees.depart);
    afficherStation(champsArrivee(), donnees.arrivee);
    montrerReel(*m_ui->editDernierAngle, donnees.fermeture);
    m_ui->panneau->afficher(donnees.lignes, donnees.unite, donnees.nivellement);
}

bilanLecture corrPolygoOuverteDLG::lire(std::string_view contenu)
{
    donneesPolygonaleOuverte lues = donnees();
    const bilanLecture bilan = lirePolygonale(contenu, lues);
    afficher(lues);
    return bilan;
}

void corrPolygoOuverteDLG::calculerGisement(const champsStation& champs) const
{
    const stationPolygonale direction = station(champs);
    CCalcGisementDlg calcul(m_ui->panneau->unite(), {direction.nom, direction.x, direction.y});
    if (calcul.exec() == Accepted)
        montrerReel(*champs.gisement, calcul.gisementCalcule());
}

void corrPolOuverte()
{
    if (dialoguesPossibles())
        corrPolygoOuverteDLG().exec();
}
