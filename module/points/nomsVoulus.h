#pragma once

#include <optional>
#include <vector>

#include "afx.h"

/// The number that a point name is: digits alone, blanks around them left out.
std::optional<int> numeroDuNom(const CString& nom);

/// Point names that a user types as one text: names, patterns ("*", "?", "#" and so on, as in wcmatch) and ranges of
/// numbers "10-20", between commas. Letter case and blanks around them do not count.
class nomsVoulus {
public:
    explicit nomsVoulus(const CString& texte);

    bool contient(const CString& nom) const;

private:
    struct plage {
        int premier, dernier;
    };
    std::vector<plage> plages;
    std::vector<CString> motifs; // in capitals
};
