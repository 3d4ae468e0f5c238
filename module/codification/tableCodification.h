#pragma once

#include <string>
#include <vector>

#include "codification/codifPoint.h"

class AcDbDatabase;

/// The table of point codes, in order of addition, and the XML file it is kept in.
/// Code numbers may repeat: a look-up sees the first code of its number only. An index outside the table raises the
/// invalid-argument exception.
class tableCodification {
public:
    /// Reads the file given, else "defcodif" of the support folder. When neither holds a code, the table gets the two
    /// defaults and "defcodif" is written anew; a "defcodif" that is there and cannot be understood is first kept
    /// beside it (".abime") and logged, and never replaced when that fails.
    explicit tableCodification(const wchar_t* fichier = nullptr);
    virtual ~tableCodification();

    const std::wstring& getFichier() const { return cheminFichier; }

    /// Appends the codes of the file. @return 1 when the table then holds any code, else 0.
    int charger();
    /// Writes the codes to `fichier`, or to the table's own file when it is null: the whole file or nothing. A
    /// "defcodif" in a support folder that cannot be written goes to a copy of that folder, the user's own; one that
    /// could not be understood and cannot be kept aside is left alone. A failure is printed and logged.
    /// @return 1, always.
    int sauver(const wchar_t* fichier = nullptr);
    /// Makes the table the two default codes, 1 "Point topo" and 100 "Station".
    void initDefauts();

    int nombre() const { return static_cast<int>(codes.size()); }
    codifPoint& operator[](int index);
    const codifPoint& operator[](int index) const;

    /// Index of the first code of that number, or -1.
    int indexCode(int code) const;
    /// The code of that number; when there is none a new one, labelled "Code %d", is appended. Valid until the table
    /// grows or shrinks.
    codifPoint& getCodif(int code);
    /// The label of that number; a code appended for it is labelled "Code N° %d".
    std::wstring getLibelle(int code);
    void ajouter(const codifPoint& code) { codes.push_back(code); }
    /// @return the number of codes left.
    int supprimer(int index);
    /// Smallest number from 1 to 9999 that no code has; 0 when all are taken.
    int plusPetitNumeroLibre() const;

    /// Lets the user edit a code in the "Codification" dialog. @return 0 for an index outside the table, else 1.
    int modifierCode(int index);

    /// Makes sure that the layers of every code exist in the drawing, first code first.
    void creerCalquesTable(AcDbDatabase* db);

private:
    enum class lecture { aucune, refusee, faite };

    lecture lireCodes(const std::wstring& chemin);
    bool sauverDansDossierPersonnel(const std::string& xml);
    std::vector<codifPoint> codesAEnregistrer() const;

    std::wstring cheminFichier;
    std::vector<codifPoint> codes;
    lecture derniere = lecture::aucune; // how the last reading of the file ended; refused: it is still there
};
