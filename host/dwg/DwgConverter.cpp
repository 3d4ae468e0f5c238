#include "dwg/DwgConverter.h"

#include <cstdlib>
#include <sstream>
#include <system_error>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "dwg/ConverterProcess.h"
#include "dwg/DwgTexts.h"

namespace fs = std::filesystem;

namespace {

// What convert.mjs ends with.
constexpr int refused = 10;
constexpr int notInstalled = 11;
constexpr int fileError = 12;

/// A file without a name, which nothing can leave behind, whatever ends us.
class ResultFile {
public:
    ResultFile() : m_descriptor(memfd_create("dessin.dxf", MFD_CLOEXEC))
    {
        if (m_descriptor < 0)
            throw std::system_error(errno, std::generic_category(), "memfd_create");
    }
    ~ResultFile() { close(m_descriptor); }
    ResultFile(const ResultFile&) = delete;
    ResultFile& operator=(const ResultFile&) = delete;

    int descriptor() const { return m_descriptor; }
    /// The name that it has in the converter.
    static std::string name() { return "/dev/fd/" + std::to_string(converterResult); }

    std::string contents() const
    {
        struct stat info {};
        if (fstat(m_descriptor, &info) != 0)
            throw std::system_error(errno, std::generic_category(), "fstat");
        std::string bytes(static_cast<std::size_t>(info.st_size), '\0');
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t got = pread(m_descriptor, &bytes[done], bytes.size() - done, static_cast<off_t>(done));
            if (got <= 0)
                throw std::system_error(errno, std::generic_category(), "pread");
            done += static_cast<std::size_t>(got);
        }
        return bytes;
    }

private:
    int m_descriptor;
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

    const ResultFile result;
    // Its quick compiler alone: 0.4 s and 0.2 GB to start the converter instead of 7 s and 0.8 GB.
    const ProcessEnd end = runProcess(
        {m_settings.node, "--liftoff-only", script.string(), fs::absolute(drawing).string(), ResultFile::name()},
        m_settings.timeLimit, m_settings.memoryLimit, result.descriptor());
    if (end.how != ProcessEnd::How::exited || end.status != 0)
        throw DwgError(drawing, failureOf(end, m_settings));

    DwgConversion conversion{result.contents(), dwg_texts::converted, {}};
    for (const std::string& line : linesOf(end.message))
        conversion.losses.push_back(dwg_texts::passedOver(line));
    return conversion;
}
