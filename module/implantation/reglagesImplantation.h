#pragma once

/// What a job shows of its results; each option is one word of the stored form.
struct optionsImplantation {
    enum groupement { nePasGrouper = 0, grouperParStation, toutGrouper };

    int grouper = grouperParStation;
    bool stations = true; ///< "Mises en station"
    bool implantations = true;
    bool numeros = true;
    bool textes = true;
    bool coordonnees = false;
};

/// What is drawn of a point: the sum of these.
enum masqueImplantation : unsigned {
    masqueNumero = 1,
    masqueLigne = 2,
    masqueDistance = 4,
    masqueAngle = 8,
    masqueX = 16,
    masqueY = 32,
    masqueZ = 64,
};
unsigned masqueDe(const optionsImplantation& options);

/// Sizes in drawing units, colours as the host numbers them. They last as long as the process.
struct reglagesImplantation {
    double largeurFleche = 2.5, longueurFleche = 2.4;
    double tailleTextes = 1.5;
    double taillePoints = 2.0, tailleStations = 3.0; ///< of crosses
    double hauteur = 1.0;                            ///< "H.Min"; and the height of the stations of a job that begins
    int nonVerifie = 7, visible = 4, nonVisible = 1;
    int station = 6, reference = 1;

    /// The crosses of stations are twice as large as texts, until they are given a size.
    void fixerTailleTextes(double taille);
};
reglagesImplantation& reglagesDuProcessus();

/// Of a height that was typed: 0 for a negative one, 1.2 for one beyond 1e30.
double hauteurAdmise(double hauteur);
