#pragma once

#include "afx.h"

class tableCodification;

/// Whether a code may be given to a point or to a new code: 1 to 9999.
bool codeValable(int code);

/// What the user reads of a code that is not.
inline constexpr const wchar_t* messageCodeIncorrect = L"Code incorrect\nTapez un nombre compris entre 1 et 9999";

/// What becomes of the code number that a user types.
enum class verdictCode {
    accepte,
    propose,     ///< "?" asked for a number
    aucunLibre,  ///< "?" asked for one, and all are taken
    horsBornes,  ///< not within 1 to 9999; a text that is no number reads as 0
    dejaExistant ///< a new code bears a number that is taken
};

struct avisCode {
    verdictCode verdict;
    int code = 0; ///< when accepted or proposed
};

/// @param creation a new code: its number must be free
avisCode validerCode(const CString& saisie, const tableCodification& table, bool creation);
