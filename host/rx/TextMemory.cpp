#include <cwchar>
#include <memory>

#include "rx/ResbufPool.h"

#include "acutmem.h"

namespace {

/// What goes across the interface is released by the other side: the pointer is all that either holds.
template <class T>
T* handOut(std::size_t count)
{
    auto block = std::make_unique<T[]>(count);
    ResbufPool::instance().textTaken();
    return block.release();
}

template <class T>
void takeBack(T*& block)
{
    if (!block)
        return;
    ResbufPool::instance().textGivenBack();
    std::unique_ptr<T[]>{block}.reset();
    block = nullptr;
}

} // namespace

Acad::ErrorStatus acutNewString(const ACHAR* input, ACHAR*& output)
{
    if (!input)
        return Acad::eInvalidInput;
    const std::size_t size = std::wcslen(input) + 1;
    ACHAR* copy = handOut<ACHAR>(size);
    std::wmemcpy(copy, input, size);
    output = copy;
    return Acad::eOk;
}

Acad::ErrorStatus acutUpdString(const ACHAR* input, ACHAR*& output)
{
    ACHAR* old = output; // `input` may be part of it
    if (acutNewString(input, output) != Acad::eOk)
        output = nullptr;
    acutDelString(old);
    return Acad::eOk;
}

Acad::ErrorStatus acutNewBuffer(ACHAR*& output, std::size_t size)
{
    output = handOut<ACHAR>(size);
    return Acad::eOk;
}

Acad::ErrorStatus acutNewBuffer(char*& output, std::size_t size)
{
    output = handOut<char>(size);
    return Acad::eOk;
}

void acutDelString(ACHAR*& text)
{
    takeBack(text);
}

void acutDelBuffer(ACHAR*& buffer)
{
    takeBack(buffer);
}

void acutDelBuffer(char*& buffer)
{
    takeBack(buffer);
}
