#include "dwg/DwgConverter.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

#include "dwg/ConverterProcess.h"
#include "dwg/DwgTexts.h"
#include "platform/TempFiles.h"

namespace fs = std::filesystem;

namespace {

// What convert.mjs ends with.
constexpr int refused = 10;
constexpr int notInstalled = 11;
constexpr int fileError = 12;

/// A folder of our own for one conversion, gone with all it holds at the end.
class ConversionFolder {
public:
    ConversionFolder() : m_path((platform::temporaryFolder() / "dwg-XXXXXX").string())
    {
        if (mkdtemp(m_path.data()) == nullptr)
            throw std::system_error(errno, std::generic_category(), m_path);
    }
    ~ConversionFolder()
    {
        std::error_code ignored; // what cannot be removed stays in a temporary folder
        fs::remove_all(m_path, ignored);
    }
    ConversionFolder(const ConversionFolder&) = delete;
    ConversionFolder& operator=(const ConversionFolder&) = delete;

    fs::path result() const { return fs::path(m_path) / "dessin.dxf"; }

private:
    std::string m_path;
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        if (!line.empty())
            lines.push_back(line);
    return lines;
}

/// Why there is no result; nothing is said of a conversion that came to its end.
std::string failureOf(const ProcessEnd& end, const DwgConverter::Settings& settings)
{
    using How = ProcessEnd::How;
    if (end.how == How::notFound)
        return dwg_texts::nodeMissing;
    if (end.how == How::timedOut)
        return dwg_texts::tooLong(settings.timeLimit);
    if (end.how == How::exited && end.status == notInstalled)
        return dwg_texts::notInstalledIn(settings.folder);
    const std::vector<std::string> lines = linesOf(end.message);
    const bool explained = end.how == How::exited && (end.status == refused || end.status == fileError);
    return dwg_texts::unreadable(explained && !lines.empty() ? lines.back() : dwg_texts::crashed);
}

std::string contentsOf(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string bytes(fs::file_size(file), '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream)
        throw std::system_error(errno, std::generic_category(), file.string());
    return bytes;
}

} // namespace

DwgError::DwgError(const fs::path& drawing, const std::string& reason) :
    std::runtime_error(drawing.filename().string() + " : " + reason)
{
}

fs::path DwgConverter::installedFolder()
{
    const char* const chosen = std::getenv("VELA_CONVERTISSEUR");
    if (chosen != nullptr && *chosen != '\0')
        return fs::absolute(chosen);
    return (fs::read_symlink("/proc/self/exe").parent_path() / "../lib/vela/convertisseur").lexically_normal();
}

DwgConversion DwgConverter::convert(const fs::path& drawing) const
{
    const fs::path script = m_settings.folder / "convert.mjs";
    if (!fs::exists(script))
        throw DwgError(drawing, dwg_texts::notInstalledIn(m_settings.folder));

    const ConversionFolder folder;
    // Its quick compiler alone: 0.4 s and 0.2 GB to start the converter instead of 7 s and 0.8 GB.
    const ProcessEnd end = runProcess(
        {m_settings.node, "--liftoff-only", script.string(), fs::absolute(drawing).string(), folder.result().string()},
        m_settings.timeLimit, m_settings.memoryLimit);
    if (end.how != ProcessEnd::How::exited || end.status != 0)
        throw DwgError(drawing, failureOf(end, m_settings));

    DwgConversion conversion{contentsOf(folder.result()), {dwg_texts::converted}};
    for (const std::string& line : linesOf(end.message))
        conversion.notes.push_back(dwg_texts::passedOver(line));
    return conversion;
}
