#pragma once

#include <chrono>
#include <memory>

#include "services/Uncopyable.h"

class QProgressDialog;

/// Shows how far a run over many items is: range 0 to `dernier`, one step an item. It appears only when the run lasts,
/// and where there are windows. It lives for the length of the run.
class dialogueProgression : Uncopyable {
public:
    enum class arret { impossible, permis };

    /// What lasts longer, or promises to, is shown, and can be stopped from then on. Tests take none.
    static inline std::chrono::milliseconds patience{500};

    /// @param a whether the user may stop the run
    dialogueProgression(const wchar_t* titre, int dernier, arret a = arret::impossible);
    ~dialogueProgression();

    /// @return false once the user asked to stop
    bool avancer();

private:
    std::unique_ptr<QProgressDialog> dialogue;
    std::chrono::steady_clock::time_point prochain; // showing each step would cost more than the steps
    int valeur = 0;
};
