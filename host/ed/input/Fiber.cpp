#include "ed/input/Fiber.h"

#include <cstdint>
#include <cstring>
#include <new>
#include <utility>

#include <cxxabi.h>
#include <sys/mman.h>
#include <ucontext.h>

#include "platform/StackBounds.h"

#if defined(__SANITIZE_ADDRESS__)
#define VELA_TELLS_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELA_TELLS_ASAN 1
#endif
#endif

#ifdef VELA_TELLS_ASAN
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

/// As much as a thread has: dialogs run on it. The system gives the pages that are touched only.
constexpr std::size_t kStackSize = 8U << 20;
constexpr std::size_t kGuardSize = 64U << 10;

/// What the runtime keeps of the exceptions under way on a stack: the two words of __cxa_eh_globals.
struct ExceptionsUnderWay {
    void* caught = nullptr;
    unsigned int uncaught = 0;
};

ExceptionsUnderWay exchangeExceptions(const ExceptionsUnderWay& others)
{
    void* const globals = abi::__cxa_get_globals();
    ExceptionsUnderWay before;
    std::memcpy(&before.caught, globals, sizeof before.caught);
    std::memcpy(&before.uncaught, static_cast<char*>(globals) + sizeof before.caught, sizeof before.uncaught);
    std::memcpy(globals, &others.caught, sizeof others.caught);
    std::memcpy(static_cast<char*>(globals) + sizeof others.caught, &others.uncaught, sizeof others.uncaught);
    return before;
}

} // namespace

struct Fiber::Stack {
    void* memory;
    ucontext_t inside{}, outside{};
    ExceptionsUnderWay exceptions;       // of the side that does not run
    std::uintptr_t outsideFloor = 0;     // of the stack that resumed
    const void* outsideBottom = nullptr; // the same, as the sanitizer knows it
    std::size_t outsideSize = 0;
    void* fakeInside = nullptr; // the sanitizer's own of each side
    void* fakeOutside = nullptr;

    Stack() :
        memory(mmap(nullptr, kStackSize + kGuardSize, PROT_READ | PROT_WRITE,
                    MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0))
    {
        if (memory == MAP_FAILED)
            throw std::bad_alloc();
        mprotect(memory, kGuardSize, PROT_NONE); // an overflow stops here instead of writing elsewhere
    }
    ~Stack() { munmap(memory, kStackSize + kGuardSize); }
    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;

    char* bottom() const { return static_cast<char*>(memory) + kGuardSize; }

    // Each switch is told to the sanitizer on both of its sides.
    void leaveOutside()
    {
#ifdef VELA_TELLS_ASAN
        __sanitizer_start_switch_fiber(&fakeOutside, bottom(), kStackSize);
#endif
    }
    void enterInside()
    {
#ifdef VELA_TELLS_ASAN
        __sanitizer_finish_switch_fiber(fakeInside, &outsideBottom, &outsideSize);
#endif
    }
    void leaveInside([[maybe_unused]] bool forGood)
    {
#ifdef VELA_TELLS_ASAN
        __sanitizer_start_switch_fiber(forGood ? nullptr : &fakeInside, outsideBottom, outsideSize);
#endif
    }
    void enterOutside()
    {
#ifdef VELA_TELLS_ASAN
        __sanitizer_finish_switch_fiber(fakeOutside, nullptr, nullptr);
#endif
    }
};

Fiber::Fiber(std::function<void()> body) : m_body(std::move(body)) {}

Fiber::~Fiber() = default;

void Fiber::start(unsigned low, unsigned high)
{
    auto* const fiber = reinterpret_cast<Fiber*>(static_cast<std::uintptr_t>(high) << 32 | low);
    fiber->m_stack->enterInside();
    fiber->run();
}

void Fiber::run()
{
    try {
        m_body();
    } catch (...) {
        m_thrown = std::current_exception();
    }
    m_ended = true;
    m_stack->leaveInside(true);
    setcontext(&m_stack->outside);
}

void Fiber::resume()
{
    if (m_ended)
        return;
    if (!m_stack) {
        m_stack = std::make_unique<Stack>();
        getcontext(&m_stack->inside);
        m_stack->inside.uc_stack.ss_sp = m_stack->bottom();
        m_stack->inside.uc_stack.ss_size = kStackSize;
        m_stack->inside.uc_link = nullptr;
        const auto address = reinterpret_cast<std::uintptr_t>(this);
        makecontext(&m_stack->inside, reinterpret_cast<void (*)()>(&Fiber::start), 2, static_cast<unsigned>(address),
                    static_cast<unsigned>(address >> 32));
    }
    m_running = true;
    m_stack->exceptions = exchangeExceptions(m_stack->exceptions);
    m_stack->outsideFloor = platform::setFiberFloor(reinterpret_cast<std::uintptr_t>(m_stack->bottom()));
    m_stack->leaveOutside();
    swapcontext(&m_stack->outside, &m_stack->inside);
    m_stack->enterOutside();
    platform::setFiberFloor(m_stack->outsideFloor);
    m_stack->exceptions = exchangeExceptions(m_stack->exceptions);
    m_running = false;
    if (m_ended)
        m_stack.reset();
    if (m_thrown)
        std::rethrow_exception(std::exchange(m_thrown, nullptr));
}

void Fiber::stop()
{
    m_stack->leaveInside(false);
    swapcontext(&m_stack->inside, &m_stack->outside);
    m_stack->enterInside();
}
