#include "codification/tableCodification.h"

#include <algorithm>
#include <exception>

#include "codification/regleCode.h"
#include "codification/xmlCodification.h"
#include "services/codages.h"
#include "services/dossierSupport.h"
#include "services/fichierEntier.h"
#include "services/journaux.h"
#include "services/lettres.h"

#include "acutads.h"
#include "afx.h"
#include "dbsymtb.h"

namespace {

std::wstring entreCrochets(const std::wstring& chemin)
{
    return L"[" + chemin + L"]";
}

void journaliser(const std::wstring& message)
{
    journaliserMessage(versAnsi(L"Codification : " + message + L"\n").c_str());
}

/// Tells the user, and the log.
void signaler(const std::wstring& message)
{
    acutPrintf(L"\nCodification : %s", message.c_str());
    journaliser(message);
}

constexpr const wchar_t* nomFichier = L"defcodif";

// Intended: another label for the records of getLibelle; users tell by it how a code came to be.
constexpr const wchar_t* debutCodif = L"Code ";
constexpr const wchar_t* debutLibelle = L"Code N° ";

codifPoint codifNeuve(int code, const wchar_t* debut)
{
    codifPoint neuve;
    neuve.libelle = debut + std::to_wstring(code);
    neuve.code = code;
    return neuve;
}

/// @return whether the file may be replaced.
bool garderFichierRefuse(const std::wstring& chemin)
{
    const auto copie = mettreDeCote(chemin.c_str());
    if (copie && !copie->empty())
        journaliser(entreCrochets(chemin) + L" est illisible ; il est gardé sous " + entreCrochets(*copie) + L".");
    return copie.has_value();
}

} // namespace

tableCodification::tableCodification(const wchar_t* fichier)
{
    if (fichier) {
        cheminFichier = fichier;
        charger();
        if (!codes.empty())
            return;
    }
    cheminFichier = cheminSupport(nomFichier);
    charger();
    if (!codes.empty())
        return;
    initDefauts();
    sauver();
}

tableCodification::~tableCodification() = default;

int tableCodification::charger()
{
    const std::wstring chemin(sansBlancs(cheminFichier, blancsSaisie));
    derniere = lecture::aucune;
    if (chemin.empty())
        return 0;
    derniere = lireCodes(chemin);
    return derniere == lecture::faite && !codes.empty() ? 1 : 0;
}

tableCodification::lecture tableCodification::lireCodes(const std::wstring& chemin)
{
    const auto signalerEchec = [&] {
        acutPrintf(L"\nechec lecture de donnees a partir de [%s] datasize=%d", chemin.c_str(), nombre());
        codes.clear();
        return lecture::refusee;
    };
    try {
        const auto octets = lireFichier(chemin.c_str());
        const std::size_t avant = codes.size();
        if (!octets || !codesDeXml(*octets, codes))
            return lecture::refusee;
        for (std::size_t i = avant; i < codes.size(); ++i)
            reparerCalques(codes[i], chemin);
        return lecture::faite;
    } catch (const std::exception&) { // no memory left
        return signalerEchec();
    } catch (CException* e) {
        e->Delete();
        return signalerEchec();
    }
}

/// Codes that files or siblings gave points beyond what codes may be are drawn like any other, but the shared file
/// does not fill with them: who changed such a record keeps it.
std::vector<codifPoint> tableCodification::codesAEnregistrer() const
{
    const auto estRefait = [](const codifPoint& c, const wchar_t* debut) {
        const codifPoint refait = codifNeuve(c.code, debut);
        return xmlDeCodes({&c, 1}) == xmlDeCodes({&refait, 1});
    };
    std::vector<codifPoint> gardes;
    for (const codifPoint& c : codes)
        if (codeValable(c.code) || !(estRefait(c, debutCodif) || estRefait(c, debutLibelle)))
            gardes.push_back(c);
    return gardes;
}

int tableCodification::sauver(const wchar_t* fichier)
{
    const std::string xml = xmlDeCodes(codesAEnregistrer());
    if (fichier) {
        if (!remplacerFichier(fichier, xml))
            signaler(entreCrochets(fichier) + L" n'a pas pu être écrit.");
        return 1;
    }
    if (derniere == lecture::refusee && !garderFichierRefuse(cheminFichier)) {
        // A file that can be read, where none can be written: the user's own folder is another place.
        if (!lireFichier(cheminFichier.c_str()) || !sauverDansDossierPersonnel(xml))
            signaler(entreCrochets(cheminFichier) + L" est illisible et n'a pas pu être copié ; il est laissé tel "
                                                    L"quel, les codes ne sont pas enregistrés.");
        else
            derniere = lecture::aucune;
        return 1;
    }
    derniere = lecture::aucune; // what was there is kept
    if (!remplacerFichier(cheminFichier.c_str(), xml) && !sauverDansDossierPersonnel(xml))
        signaler(entreCrochets(cheminFichier) +
                 L" n'a pas pu être écrit : les codes changés seront perdus à la fin de la session.");
    return 1;
}

/// Where the support folder is installed for all users, each has his own from the first write on.
bool tableCodification::sauverDansDossierPersonnel(const std::string& xml)
{
    if (cheminFichier != cheminSupport(nomFichier) || !copierDossierSupport())
        return false;
    const std::wstring avant = cheminFichier;
    cheminFichier = cheminSupport(nomFichier);
    if (!remplacerFichier(cheminFichier.c_str(), xml))
        return false;
    signaler(entreCrochets(avant) + L" ne peut pas être écrit ; vos codes sont désormais dans " +
             entreCrochets(cheminFichier) + L".");
    return true;
}

void tableCodification::initDefauts()
{
    codes.assign(2, codifPoint());
    // Intended: not the label of a new record, "Point Topo"; files in use carry this one.
    codes[0].libelle = L"Point topo";
    codes[1].code = 100;
    codes[1].libelle = L"Station";
    codes[1].chemin = cheminBiblio(L"velablk3.dwg");
}

codifPoint& tableCodification::operator[](int index)
{
    if (index < 0 || index >= nombre())
        AfxThrowInvalidArgException();
    return codes[static_cast<std::size_t>(index)];
}

const codifPoint& tableCodification::operator[](int index) const
{
    return const_cast<tableCodification&>(*this)[index];
}

int tableCodification::indexCode(int code) const
{
    const auto trouve =
        std::find_if(codes.begin(), codes.end(), [code](const codifPoint& c) { return c.code == code; });
    return trouve == codes.end() ? -1 : static_cast<int>(trouve - codes.begin());
}

codifPoint& tableCodification::getCodif(int code)
{
    const int index = indexCode(code);
    return index >= 0 ? (*this)[index] : codes.emplace_back(codifNeuve(code, debutCodif));
}

std::wstring tableCodification::getLibelle(int code)
{
    const int index = indexCode(code);
    return index >= 0 ? (*this)[index].libelle : codes.emplace_back(codifNeuve(code, debutLibelle)).libelle;
}

int tableCodification::supprimer(int index)
{
    if (index < 0 || index >= nombre())
        AfxThrowInvalidArgException();
    codes.erase(codes.begin() + index);
    return nombre();
}

int tableCodification::plusPetitNumeroLibre() const
{
    std::vector<bool> pris(10000);
    for (const codifPoint& c : codes)
        if (c.code >= 1 && c.code <= 9999)
            pris[static_cast<std::size_t>(c.code)] = true;
    const auto libre = std::find(pris.begin() + 1, pris.end(), false);
    return libre == pris.end() ? 0 : static_cast<int>(libre - pris.begin());
}

void tableCodification::creerCalquesTable(AcDbDatabase* db)
{
    AcDbLayerTable* calques = nullptr;
    if (!db || db->getLayerTable(calques, AcDb::kForWrite) != Acad::eOk)
        return;
    for (codifPoint& code : codes)
        code.creerCalques(calques);
    calques->close();
}
