#include "reports/htmlDocument.h"

#include <cerrno>
#include <cstdio>
#include <random>
#include <string_view>
#include <system_error>

#include "services/fichierOuvert.h"

namespace {

fichierOuvert openFile(const std::filesystem::path& name, const char* mode)
{
    return fichierOuvert(std::fopen(name.string().c_str(), mode));
}

/// Creates a file that did not exist, so that no two reports and no planted link can share its name.
fichierOuvert createTemporary(std::filesystem::path& name)
{
    std::error_code noFolder;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(noFolder);
    if (noFolder)
        return nullptr;
    std::random_device random;
    constexpr int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        char unique[16];
        std::snprintf(unique, sizeof unique, "%08X", static_cast<unsigned>(random()));
        name = folder / ("_TP" + std::string(unique) + ".html");
        if (auto file = openFile(name, "wbx"))
            return file;
        if (errno != EEXIST)
            break;
    }
    name.clear();
    return nullptr;
}

} // namespace

void htmlDocument::addStyle(std::string selector, std::string css)
{
    m_selectors.push_back(std::move(selector));
    m_styles.push_back(std::move(css));
}

std::string htmlDocument::bodyTag() const
{
    // Colons where HTML has equals signs: kept, saved reports are compared as text.
    return "\n<body bgcolor:" + m_background.text() + " text:" + m_text.text() + " alink:" + m_activeLink.text() +
           " vlink:" + m_visitedLink.text() + " link:" + m_link.text() + " >\n";
}

template <class Output>
void htmlDocument::forEachPiece(Output out) const
{
    out("<html>\n<head>\n");
    for (const std::string& line : m_headLines)
        out(line);
    out("<style>\n<!--");
    for (std::size_t i = 0; i < m_selectors.size(); ++i)
        out(m_selectors[i] + "{" + m_styles[i] + "}");
    out("\n-->\n</style>\n</head>\n");
    out(bodyTag());
    for (const std::string& element : m_elements)
        out(element);
    out("\n</body>\n</html>");
}

std::string htmlDocument::text() const
{
    std::size_t size = 0;
    forEachPiece([&](std::string_view piece) { size += piece.size(); });
    std::string whole;
    whole.reserve(size);
    forEachPiece([&](std::string_view piece) { whole += piece; });
    return whole;
}

bool htmlDocument::write()
{
    fichierOuvert file = m_fileName.empty() ? createTemporary(m_fileName) : openFile(m_fileName, "wb");
    if (!file)
        return false;
    bool written = true;
    forEachPiece([&](std::string_view piece) {
        written = written && std::fwrite(piece.data(), 1, piece.size(), file.get()) == piece.size();
    });
    // Closing flushes, and a full disk may only show then.
    return std::fclose(file.release()) == 0 && written;
}
