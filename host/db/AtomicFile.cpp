#include "db/AtomicFile.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const char* what, const fs::path& path)
{
    throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

/// A file beside the target that vanishes unless it is renamed.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& target) : m_name(target.string() + ".XXXXXX")
    {
        m_descriptor = mkstemp(m_name.data());
        if (m_descriptor < 0)
            fail("création impossible", target);
    }
    ~TemporaryFile()
    {
        closeDescriptor();
        if (!m_renamed)
            unlink(m_name.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void write(const std::vector<std::string_view>& pieces)
    {
        constexpr std::size_t batch = 512; // below the system's limit of pieces a call
        std::vector<iovec> vectors;
        for (std::size_t from = 0; from < pieces.size(); from += batch) {
            vectors.clear();
            for (std::size_t i = from; i < std::min(from + batch, pieces.size()); ++i)
                vectors.push_back({const_cast<char*>(pieces[i].data()), pieces[i].size()});
            writeAll(vectors);
        }
    }

    void finish(mode_t mode)
    {
        if (fchmod(m_descriptor, mode) != 0 || fsync(m_descriptor) != 0 || !closeDescriptor())
            fail("écriture impossible", m_name);
    }

    void renameTo(const fs::path& target)
    {
        if (rename(m_name.c_str(), target.c_str()) != 0)
            fail("remplacement impossible", target);
        m_renamed = true;
    }

private:
    void writeAll(std::vector<iovec>& vectors)
    {
        std::size_t first = 0;
        while (first < vectors.size()) {
            ssize_t written = writev(m_descriptor, &vectors[first], static_cast<int>(vectors.size() - first));
            if (written < 0 && errno == EINTR)
                continue;
            if (written < 0)
                fail("écriture impossible", m_name);
            while (first < vectors.size() && static_cast<std::size_t>(written) >= vectors[first].iov_len) {
                written -= static_cast<ssize_t>(vectors[first].iov_len);
                ++first;
            }
            if (first < vectors.size() && written > 0) {
                vectors[first].iov_base = static_cast<char*>(vectors[first].iov_base) + written;
                vectors[first].iov_len -= static_cast<std::size_t>(written);
            }
        }
    }

    bool closeDescriptor()
    {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return descriptor < 0 || close(descriptor) == 0;
    }

    std::string m_name;
    int m_descriptor = -1;
    bool m_renamed = false;
};

/// The old file stays in place under its name until the new one is there, so no moment lacks both.
void keepAsBackup(const fs::path& path)
{
    fs::path backup = path;
    backup.replace_extension(".bak");
    if (backup == path)
        return;
    std::error_code error;
    fs::remove(backup, error);
    fs::create_hard_link(path, backup, error);
    if (error)
        fs::copy_file(path, backup, fs::copy_options::overwrite_existing);
}

mode_t modeOf(const fs::path& path, bool& exists)
{
    struct stat info {};
    exists = stat(path.c_str(), &info) == 0;
    constexpr mode_t all = 0666, permissions = 07777;
    if (exists)
        return info.st_mode & permissions;
    const mode_t mask = umask(0);
    umask(mask);
    return all & ~mask;
}

} // namespace

void writeAtomically(const fs::path& path, const std::vector<std::string_view>& pieces, bool keepOld)
{
    std::error_code error;
    const fs::path target = fs::is_symlink(path, error) ? fs::canonical(path) : path; // the link itself stays
    bool exists = false;
    const mode_t mode = modeOf(target, exists);
    TemporaryFile temporary(target);
    temporary.write(pieces);
    temporary.finish(mode);
    if (exists && keepOld)
        keepAsBackup(target);
    temporary.renameTo(target);
}
