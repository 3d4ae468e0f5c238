#pragma once

/// Base of what may not be copied.
class Uncopyable {
public:
    Uncopyable(const Uncopyable&) = delete;
    Uncopyable& operator=(const Uncopyable&) = delete;

protected:
    Uncopyable() = default;
    ~Uncopyable() = default;
};
