#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "reports/htmlColor.h"

/// Head line that declares the encoding of the reports, for browsers that would guess.
inline constexpr char htmlHeadWindows1252[] =
    "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">\n";

/// A report: style classes and body elements in the order added, written to a file in one go.
/// All texts are narrow and written as they are: nothing is escaped or converted.
class htmlDocument {
public:
    void setBackgroundColor(const htmlColor& color) { m_background = color; }
    void setTextColor(const htmlColor& color) { m_text = color; }
    void setActiveLinkColor(const htmlColor& color) { m_activeLink = color; }
    void setVisitedLinkColor(const htmlColor& color) { m_visitedLink = color; }
    void setLinkColor(const htmlColor& color) { m_link = color; }

    /// Adds a line to the head, written as it is: with its own line feed, if it is to have one.
    void addHeadLine(std::string line) { m_headLines.push_back(std::move(line)); }
    /// @param selector such as ".titre"; @param css the style's text (htmlStyle::text).
    void addStyle(std::string selector, std::string css);
    /// Appends a rendered text or table to the body.
    void append(std::string element) { m_elements.push_back(std::move(element)); }

    /// The whole document.
    std::string text() const;

    /// Empty until chosen or written.
    const std::filesystem::path& fileName() const { return m_fileName; }
    void setFileName(std::filesystem::path name) { m_fileName = std::move(name); }

    /// Writes the document, over an existing file of that name. Without a name, a new file "_TP….html" is made in the
    /// system's temporary folder and its name kept.
    /// @return false when the file cannot be created or wholly written.
    bool write();

private:
    /// Calls `out` with each piece of the document in order, so that writing needs no second copy of a large report.
    template <class Output>
    void forEachPiece(Output out) const;
    std::string bodyTag() const;

    std::filesystem::path m_fileName;
    htmlColor m_background{255, 255, 255};
    htmlColor m_text{0, 0, 0};
    htmlColor m_activeLink{255, 0, 0};
    htmlColor m_visitedLink{128, 0, 128};
    htmlColor m_link{0, 0, 255};
    std::vector<std::string> m_headLines;
    std::vector<std::string> m_selectors; // parallel to m_styles
    std::vector<std::string> m_styles;
    std::vector<std::string> m_elements;
};
