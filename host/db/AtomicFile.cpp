#include "db/AtomicFile.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const char* what, const fs::path& path)
{
    throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

constexpr char temporaryMark[] = ".vela-"; // then six characters of the system's choice

/// A file beside the target that vanishes unless it is renamed. It is locked while it is written: one that can be
/// locked belongs to a program that was killed.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& target) : m_name(target.string() + temporaryMark + "XXXXXX")
    {
        m_descriptor = mkstemp(m_name.data());
        if (m_descriptor < 0)
            fail("création impossible", target);
        flock(m_descriptor, LOCK_EX | LOCK_NB); // where the file system has no locks, nothing is removed either
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

void removeIfAbandoned(const fs::path& temporary)
{
    const int descriptor = open(temporary.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0)
        return;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        unlink(temporary.c_str());
    close(descriptor);
}

void removeAbandoned(const fs::path& target)
{
    const std::string start = target.filename().string() + temporaryMark;
    constexpr std::size_t chosen = 6;
    std::error_code error;
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.size() == start.size() + chosen && name.starts_with(start))
            removeIfAbandoned(entry->path());
    }
}

/// A second name for a file, or a copy where the file system has no such names.
void linkOrCopy(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    fs::create_hard_link(from, to, error);
    if (error)
        fs::copy_file(from, to, fs::copy_options::overwrite_existing);
}

/// The old file stays in place under its name until the new one is there, so no moment lacks both.
void keepAsBackup(const fs::path& path)
{
    fs::path backup = path;
    backup.replace_extension(".bak");
    if (backup == path)
        return;
    std::error_code error;
    fs::remove(backup, error);
    linkOrCopy(path, backup);
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
    removeAbandoned(target);
    TemporaryFile temporary(target);
    temporary.write(pieces);
    temporary.finish(mode);
    if (exists && keepOld)
        keepAsBackup(target);
    temporary.renameTo(target);
}

void keepOriginal(const fs::path& path)
{
    const auto named = [&](int number) {
        const std::string mark = number > 1 ? ".original-" + std::to_string(number) : ".original";
        return path.parent_path() / (path.stem().string() + mark + path.extension().string());
    };
    int number = 1;
    while (fs::exists(named(number)))
        ++number;
    linkOrCopy(path, named(number));
}

bool isReadOnly(const fs::path& path)
{
    constexpr mode_t anyoneWrites = 0222;
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
           ((info.st_mode & anyoneWrites) == 0 || access(path.c_str(), W_OK) != 0);
}
