#pragma once

#include <string>
#include <vector>

#include "services/dialogueModule.h"

class htmlDocument;

namespace Ui {
class resultPolygo;
}

/// Shows a report in an embedded browser and saves a copy of it on request. The report stays where it is.
class resultPolygo : public dialogueModule {
public:
    /// @param rapport the report's file, native path
    /// @param remarques sentences for the user, shown under the report; none, nothing is shown
    explicit resultPolygo(std::wstring rapport, const std::vector<std::wstring>& remarques = {});
    ~resultPolygo() override;

private:
    void montrerTexte();
    void sauvegarder() const;

    std::wstring m_rapport;
    std::unique_ptr<Ui::resultPolygo> m_ui;
    QWidget* m_page = nullptr;
};

inline constexpr const wchar_t* rapportNonEcrit = L"Le rapport n'a pas pu être écrit dans le dossier temporaire.";

/// Writes a report and shows it; says so when it cannot be written.
void ecrireEtMontrer(htmlDocument& rapport, const std::vector<std::wstring>& remarques = {});
