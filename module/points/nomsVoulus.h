#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The number that a point name is: digits alone, blanks around them left out.
std::optional<int> numeroDuNom(std::wstring_view nom);

/// Point names that a user types as one text: names, patterns ("*", "?", "#" and so on, as in wcmatch) and ranges of
/// numbers "10-20", between commas. Letter case and blanks around them do not count.
class nomsVoulus {
public:
    explicit nomsVoulus(std::wstring_view texte);

    bool contient(std::wstring_view nom) const;

private:
    struct plage {
        int premier, dernier;
    };
    std::vector<plage> plages;
    std::vector<std::wstring> motifs; // in capitals
};
