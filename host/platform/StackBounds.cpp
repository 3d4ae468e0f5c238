#include "platform/StackBounds.h"

#include <cstddef>
#include <utility>

#include <pthread.h>

namespace platform {

namespace {
thread_local std::uintptr_t fiberFloor = 0;
} // namespace

std::uintptr_t threadStackFloor()
{
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return 0;
    void* lowest = nullptr;
    std::size_t size = 0;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    return reinterpret_cast<std::uintptr_t>(lowest);
}

std::uintptr_t stackFloor()
{
    static thread_local const std::uintptr_t own = threadStackFloor();
    return fiberFloor != 0 ? fiberFloor : own;
}

std::uintptr_t setFiberFloor(std::uintptr_t floor)
{
    return std::exchange(fiberFloor, floor);
}

} // namespace platform
