#pragma once

#include <exception>
#include <functional>
#include <memory>

/// A function that runs on a stack of its own, so that it can stop in its middle and go on later. All on one thread:
/// the one that resumes waits until it stops or ends.
class Fiber {
public:
    /// `body` starts with the first resume; what it throws comes out of the resume that it happens in.
    explicit Fiber(std::function<void()> body);
    /// It must have ended, or never started.
    ~Fiber();
    Fiber(const Fiber&) = delete;
    Fiber& operator=(const Fiber&) = delete;

    /// Runs until the body stops or ends. Not from inside.
    void resume();
    /// From inside: back to where it was resumed.
    void stop();

    bool hasEnded() const { return m_ended; }
    /// Whether its code is running, or waits for another fiber that it resumed.
    bool isRunning() const { return m_running; }

private:
    struct Stack;
    static void start(unsigned low, unsigned high);
    void run();

    std::function<void()> m_body;
    std::unique_ptr<Stack> m_stack;
    std::exception_ptr m_thrown;
    bool m_running = false;
    bool m_ended = false;
};
