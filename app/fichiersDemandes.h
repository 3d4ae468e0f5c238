#pragma once

#include <filesystem>
#include <string>

/// The files that a command line names: UTF-8, as typed.

std::filesystem::path cheminNatif(const std::string& chemin);

/// The drawing that a command writes: the one it completes unless another is named.
template <class Demande>
const std::string& dessinAEcrire(const Demande& demande)
{
    return demande.enregistrer.empty() ? demande.dessin : demande.enregistrer;
}

/// A result never takes the place of the data it comes from. An empty name is no file. @throws erreurProgramme
void refuserMemeFichier(const std::string& resultat, const std::string& source);

/// A report and the drawing that is to be saved, which may not exist yet. @throws erreurProgramme when they are one
/// file.
void refuserRapportSurDessin(const std::string& rapport, const std::string& dessin);

/// A list or a report writes over what is there: not over a drawing. @throws erreurProgramme
/// @param exemple extension that the result may have
void refuserNomDeDessin(const std::string& resultat, const std::string& exemple);

/// @throws erreurProgramme unless writing the report went well.
void exigerRapportEcrit(bool ecrit, const std::string& rapport);
