#include "exchange/carte/ecrireCarte.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <string_view>

#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

namespace {

constexpr char pasCreee[] = "la carte n'a pas pu être créée";
constexpr char arretee[] = "l'écriture de la carte s'est arrêtée";

/// What the library complains of is kept, for the user to read, and not printed.
class plaintes {
public:
    plaintes()
    {
        CPLPushErrorHandlerEx(
            [](CPLErr gravite, CPLErrorNum, const char* texte) {
                if (gravite >= CE_Failure)
                    static_cast<plaintes*>(CPLGetErrorHandlerUserData())->m_derniere = texte;
            },
            this);
    }
    ~plaintes() { CPLPopErrorHandler(); }
    plaintes(const plaintes&) = delete;
    plaintes& operator=(const plaintes&) = delete;

    std::string raison(const std::string& phrase) const
    {
        if (m_derniere.empty())
            return phrase + ".";
        const auto dit = [this](const char* anglais) { return m_derniere.find(anglais) != std::string::npos; };
        if (dit("No space left on device") || dit("disk is full"))
            return phrase + " (plus de place sur le disque).";
        if (dit("is unreasonable"))
            return phrase + " : des coordonnées ne sont pas de cette projection.";
        return phrase + " (" + m_derniere + ").";
    }
    bool muettes() const { return m_derniere.empty(); }

private:
    std::string m_derniere;
};

struct fermeture {
    void operator()(GDALDataset* d) const { GDALClose(d); }
};
using jeuDonnees = std::unique_ptr<GDALDataset, fermeture>;

CPLStringList optionsCouche(std::string_view format)
{
    CPLStringList options;
    if (format == "GeoJSON") {
        options.SetNameValue("RFC7946", "YES"); // longitudes and latitudes, as every program expects of it
        options.SetNameValue("COORDINATE_PRECISION", "9");
    } else if (format == "ESRI Shapefile") {
        options.SetNameValue("ENCODING", "UTF-8");
    }
    return options;
}

bool creerChamps(OGRLayer& couche)
{
    struct champ {
        const char* nom;
        OGRFieldType type;
        int largeur;
    };
    constexpr int large = 254; // of a text: the most that a Shapefile holds
    for (const champ& c : {champ{"numero", OFTString, 9}, champ{"altitude", OFTReal, 0}, champ{"code", OFTInteger, 0},
                           champ{"libelle", OFTString, large}, champ{"observation", OFTString, large}}) {
        OGRFieldDefn definition(c.nom, c.type);
        definition.SetWidth(c.largeur);
        if (couche.CreateField(&definition) != OGRERR_NONE)
            return false;
    }
    return true;
}

bool ajouter(OGRLayer& couche, const pointCarte& p)
{
    OGRFeatureDefn& champs = *couche.GetLayerDefn();
    enum { numero, altitude, code, libelle, observation };
    const int premier = champs.GetFieldIndex("numero"); // ours stand behind those that a format has by itself
    const std::unique_ptr<OGRFeature, void (*)(OGRFeature*)> trait(OGRFeature::CreateFeature(&champs),
                                                                   OGRFeature::DestroyFeature);
    trait->SetField(premier + numero, p.numero.c_str());
    if (p.altitudeConnue)
        trait->SetField(premier + altitude, p.z);
    else
        trait->SetFieldNull(premier + altitude); // every point of a GeoJSON has every field
    trait->SetField(premier + code, p.code);
    trait->SetField(premier + libelle, p.libelle.c_str());
    if (!p.observation.empty())
        trait->SetField(premier + observation, p.observation.c_str());
    else
        trait->SetFieldNull(premier + observation);
    if (const int etiquette = champs.GetFieldIndex("Name"); etiquette >= 0) // of KML: what maps show beside the point
        trait->SetField(etiquette, p.numero.c_str());
    OGRPoint place(p.x, p.y);
    if (p.altitudeConnue)
        place.setZ(p.z);
    trait->SetGeometry(&place);
    return couche.CreateFeature(trait.get()) == OGRERR_NONE;
}

/// The writers of GeoJSON and KML say nothing of a disk that is full: the end of their file tells.
bool estEntiere(const std::string& fichier, std::string_view format)
{
    const std::string_view fin = format == "GeoJSON" ? "}" : format == "KML" ? "</kml>" : "";
    if (fin.empty())
        return true;
    constexpr std::streamoff assez = 64;
    std::ifstream flux(fichier, std::ios::binary | std::ios::ate);
    flux.seekg(-std::min<std::streamoff>(assez, flux.tellg()), std::ios::end);
    std::string reste{std::istreambuf_iterator<char>(flux), {}};
    reste.resize(reste.find_last_not_of(" \r\n") + 1);
    return reste.ends_with(fin);
}

std::string ecrire(const std::string& fichier, const char* format, const std::string& projection,
                   const std::function<bool(pointCarte&)>& suivant)
{
    const plaintes dites;
    GDALAllRegister();
    OGRSpatialReference repere;
    repere.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (projection.empty())
        return "une carte demande la projection du dessin, « EPSG:2154 » par exemple.";
    if (repere.SetFromUserInput(projection.c_str()) != OGRERR_NONE)
        return "projection « " + projection + " » inconnue.";
    GDALDriver* const pilote = GetGDALDriverManager()->GetDriverByName(format);
    jeuDonnees donnees(pilote ? pilote->Create(fichier.c_str(), 0, 0, 0, GDT_Unknown, nullptr) : nullptr);
    if (!donnees)
        return dites.raison(pasCreee);
    CPLStringList options = optionsCouche(format);
    OGRLayer* const couche = donnees->CreateLayer("points", &repere, wkbPoint25D, options.List());
    if (!couche || !creerChamps(*couche))
        return dites.raison(pasCreee);
    const bool transaction = donnees->StartTransaction() == OGRERR_NONE;
    for (pointCarte p; suivant(p);)
        if (!ajouter(*couche, p))
            return dites.raison(arretee);
    if (transaction && donnees->CommitTransaction() != OGRERR_NONE)
        return dites.raison(arretee);
    donnees.reset(); // closing writes the end
    if (dites.muettes() && !estEntiere(fichier, format))
        return std::string(arretee) + " avant sa fin, sans doute faute de place sur le disque.";
    return dites.muettes() ? std::string() : dites.raison(arretee);
}

} // namespace

extern "C" __attribute__((visibility("default"))) void velaEcrireCarte(const std::string& fichier, const char* format,
                                                                       const std::string& projection,
                                                                       const std::function<bool(pointCarte&)>& suivant,
                                                                       std::string& refus)
{
    refus = ecrire(fichier, format, projection, suivant);
}
