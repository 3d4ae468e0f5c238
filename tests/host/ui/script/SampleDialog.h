#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTabWidget>

/// One of each kind of widget, in a form, in groups, in tabs, and laid out by hand.
class SampleDialog : public QDialog {
public:
    SampleDialog();

    QLineEdit* number = new QLineEdit;             // label "&Numéro :", its buddy
    QDoubleSpinBox* distance = new QDoubleSpinBox; // label "Distance" of a form's row
    QSpinBox* decimals = new QSpinBox;             // "Décimales", 0 to 4
    QComboBox* angles = new QComboBox;             // "Angles": grades, degrés, radians
    QComboBox* code = new QComboBox;               // "Code", editable: 100, 200
    QCheckBox* altitudes = new QCheckBox(tr("Placer les &altitudes"));
    QPlainTextEdit* comment = new QPlainTextEdit; // "Commentaire"
    QLineEdit* fixed = new QLineEdit;             // "Fixe", read-only
    QLineEdit* bounded = new QLineEdit;           // "Borné": digits only
    QGroupBox* start = new QGroupBox(tr("Départ"));
    QLineEdit* startX = new QLineEdit; // "X" in "Départ"
    QGroupBox* end = new QGroupBox(tr("Arrivée"));
    QLineEdit* endX = new QLineEdit; // "X" in "Arrivée"
    QGroupBox* grouping = new QGroupBox(tr("Groupement"));
    QRadioButton* none = new QRadioButton(tr("Ne pas grouper"));
    QRadioButton* all = new QRadioButton(tr("Tout grouper"));
    QTabWidget* tabs = new QTabWidget;          // "Général", "Détail"
    QLineEdit* detail = new QLineEdit;          // "Détail": "Repère"
    QLineEdit* beside = nullptr;                // label "À gauche" on its left, no buddy
    QLineEdit* below = nullptr;                 // label "Au-dessus" above it, no buddy
    QLabel* result = new QLabel(tr("12.5000")); // beside "Fermeture"
    QPushButton* compute = new QPushButton(tr("Calculer !"));
    QPushButton* greyed = new QPushButton(tr("Grisé"));
};

/// A table "Observations" with the columns Station, Angle, Code, and a list of files.
class TableDialog : public QDialog {
public:
    TableDialog();

    QTableWidget* table = new QTableWidget(4, 3); // S1..S4, 100.0.., checkable in the third column
    QListWidget* files = nullptr;                 // made by showFiles
    QStringList events;                           ///< "ouvert 2,1", "titre 2", "clic 3,1"

    void showFiles();
};
