#include "dxf/FileBytes.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "dxf/FileLease.h"
#include "dxf/LargePages.h"

namespace {

constexpr std::size_t copiedUpTo = std::size_t{32} << 20; // read within 20 ms

[[noreturn]] void fail(int error)
{
    throw std::system_error(error, std::generic_category());
}

class Descriptor {
public:
    explicit Descriptor(const std::string& path) : m_number(::open(path.c_str(), O_RDONLY | O_CLOEXEC))
    {
        if (m_number < 0)
            fail(errno);
        struct stat info {};
        if (::fstat(m_number, &info) == 0 && S_ISREG(info.st_mode))
            return;
        ::close(m_number);
        fail(EINVAL);
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }
    void give() { m_number = -1; }

private:
    int m_number;
};

/// Whether as many bytes were there.
bool readAll(int descriptor, char* to, std::size_t size)
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = ::pread(descriptor, to + done, size - done, static_cast<off_t>(done));
        if (got < 0 && errno != EINTR)
            fail(errno);
        if (got == 0)
            return false;
        done += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    return true;
}

} // namespace

void FileBytes::read(const std::string& path)
{
    release();
    Descriptor file(path);
    try {
        if (FileState::of(file.number()).size > copiedUpTo && map(file.number()))
            file.give();
        else
            copy(file.number());
    } catch (...) {
        release();
        throw;
    }
}

void FileBytes::release()
{
    if (m_lease)
        m_lease->release();
    m_lease = nullptr;
    if (m_address)
        ::munmap(m_address, m_size);
    m_address = nullptr;
    m_size = 0;
}

bool FileBytes::map(int descriptor)
{
    FileLease* const lease = FileLease::take(descriptor);
    if (!lease)
        return false;
    const FileState state = FileState::of(descriptor);
    void* const address = ::mmap(nullptr, state.size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    const bool mapped = address != MAP_FAILED;
    if (!mapped || !lease->watch(static_cast<char*>(address), state.size)) {
        lease->giveBack();
        if (mapped)
            ::munmap(address, state.size);
        return false;
    }
    m_address = static_cast<char*>(address);
    m_size = state.size;
    m_state = state;
    m_lease = lease;
    return true;
}

bool FileBytes::copyOnce(int descriptor)
{
    m_state = FileState::of(descriptor);
    if (m_state.size == 0)
        return true;
    void* const address = ::mmap(nullptr, m_state.size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (address == MAP_FAILED)
        fail(errno);
    m_address = static_cast<char*>(address);
    m_size = m_state.size;
    preferLargePages(m_address, m_size);
    return readAll(descriptor, m_address, m_size) && FileState::of(descriptor) == m_state;
}

void FileBytes::copy(int descriptor)
{
    constexpr int attempts = 3; // another program may be writing it
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (copyOnce(descriptor)) {
            if (m_address)
                ::mprotect(m_address, m_size, PROT_READ);
            return;
        }
        release();
    }
    fail(EBUSY);
}

void FileBytes::probe() const
{
    if (!m_lease)
        return;
    constexpr std::size_t page = 4096;
    for (std::size_t at = 0; at < m_size; at += page)
        static_cast<void>(*static_cast<const volatile char*>(m_address + at));
}

bool FileBytes::anyLost() const
{
    return m_lease && m_lease->anyLost();
}

bool FileBytes::isLost(std::size_t offset, std::size_t length) const
{
    return m_lease && m_lease->isLost(offset, length);
}
