#include "dxf/FileLease.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <new>
#include <thread>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

enum State : int { unused, taken, watched, copying, copied };

/// What the signal handlers know of a map. They may neither allocate nor lock, so there is a fixed number of them,
/// which are the process's, as signals are.
struct Watch : FileLease {
    std::atomic<int> state = unused;
    int descriptor = -1;
    char* map = nullptr;
    std::size_t size = 0;
    unsigned char* lostPages = nullptr; // one for each page
    std::atomic<bool> anyLost = false;
};

constexpr std::size_t mostWatches = 64; // drawings beyond that are copied
constinit std::array<Watch, mostWatches> watches;
struct sigaction otherBusHandler;

std::size_t pageSize()
{
    static const auto size = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return size;
}

int leaseSignal()
{
    constexpr int ours = 6; // of the signals left to programs; no library in use takes one
    return SIGRTMIN + ours;
}

Watch& watchOf(FileLease* lease)
{
    return *static_cast<Watch*>(lease);
}

void loseEverything(Watch& watch)
{
    std::memset(watch.lostPages, 1, (watch.size + pageSize() - 1) / pageSize());
    watch.anyLost = true;
}

/// Puts a copy in the place of the map. Other threads that read meanwhile see one or the other.
void copyInPlace(Watch& watch)
{
    void* const copy = mmap(nullptr, watch.size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (copy == MAP_FAILED)
        return loseEverything(watch);
    std::memcpy(copy, watch.map, watch.size);
    mprotect(copy, watch.size, PROT_READ);
    if (mremap(copy, watch.size, watch.size, MREMAP_MAYMOVE | MREMAP_FIXED, watch.map) == MAP_FAILED)
        loseEverything(watch);
}

void onLeaseBroken(int, siginfo_t* info, void*)
{
    const int error = errno;
    for (Watch& watch : watches) {
        int expected = watched;
        if (watch.descriptor != info->si_fd || !watch.state.compare_exchange_strong(expected, copying))
            continue;
        copyInPlace(watch);
        // The other program goes on. One that went on before, because we were stopped for too long, may have written
        // into what was copied.
        if (fcntl(watch.descriptor, F_SETLEASE, F_UNLCK) != 0)
            loseEverything(watch);
        watch.state = copied;
    }
    errno = error;
}

bool replaceLostPage(Watch& watch, const char* address)
{
    const int state = watch.state;
    if ((state != watched && state != copying) || address < watch.map || address >= watch.map + watch.size)
        return false;
    const std::size_t page = static_cast<std::size_t>(address - watch.map) / pageSize();
    if (mmap(watch.map + page * pageSize(), pageSize(), PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) ==
        MAP_FAILED)
        return false;
    watch.lostPages[page] = 1;
    watch.anyLost = true;
    return true;
}

void onBusError(int, siginfo_t* info, void*)
{
    const int error = errno;
    const auto* address = static_cast<const char*>(info->si_addr);
    const bool ours =
        std::any_of(watches.begin(), watches.end(), [&](Watch& watch) { return replaceLostPage(watch, address); });
    if (!ours)
        sigaction(SIGBUS, &otherBusHandler, nullptr); // the access is tried again, and is the other handler's
    errno = error;
}

void installHandlers()
{
    struct sigaction action {};
    action.sa_flags = SA_SIGINFO | SA_RESTART;
    action.sa_sigaction = onLeaseBroken;
    sigaction(leaseSignal(), &action, nullptr);
    action.sa_sigaction = onBusError;
    sigaction(SIGBUS, &action, &otherBusHandler);
}

} // namespace

FileLease* FileLease::take(int descriptor)
{
    static const bool installed = (installHandlers(), true);
    static_cast<void>(installed);
    const auto free = std::find_if(watches.begin(), watches.end(), [](Watch& watch) {
        int expected = unused;
        return watch.state.compare_exchange_strong(expected, taken);
    });
    if (free == watches.end())
        return nullptr;
    if (fcntl(descriptor, F_SETSIG, leaseSignal()) != 0 || fcntl(descriptor, F_SETLEASE, F_RDLCK) != 0) {
        free->state = unused;
        return nullptr;
    }
    free->descriptor = descriptor;
    return &*free;
}

bool FileLease::watch(char* map, std::size_t size)
{
    Watch& watch = watchOf(this);
    watch.lostPages = new (std::nothrow) unsigned char[(size + pageSize() - 1) / pageSize()]();
    if (!watch.lostPages)
        return false;
    watch.map = map;
    watch.size = size;
    watch.anyLost = false;
    watch.state = watched;
    return watch.state == copied || fcntl(watch.descriptor, F_GETLEASE) == F_RDLCK;
}

void FileLease::release()
{
    const int descriptor = watchOf(this).descriptor;
    giveBack();
    close(descriptor);
}

void FileLease::giveBack()
{
    Watch& watch = watchOf(this);
    for (int state = watch.state; state == copying || !watch.state.compare_exchange_weak(state, taken);
         state = watch.state)
        std::this_thread::yield(); // a handler on another thread is at work
    fcntl(watch.descriptor, F_SETLEASE, F_UNLCK);
    watch.descriptor = -1;
    delete[] watch.lostPages;
    watch.lostPages = nullptr;
    watch.state = unused;
}

bool FileLease::anyLost() const
{
    return static_cast<const Watch*>(this)->anyLost;
}

bool FileLease::isLost(std::size_t offset, std::size_t length) const
{
    const auto& watch = *static_cast<const Watch*>(this);
    if (!watch.anyLost || length == 0 || offset >= watch.size)
        return false;
    const std::size_t first = offset / pageSize();
    const std::size_t last = std::min(offset + length - 1, watch.size - 1) / pageSize();
    return std::any_of(watch.lostPages + first, watch.lostPages + last + 1,
                       [](unsigned char lost) { return lost != 0; });
}
