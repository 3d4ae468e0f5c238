#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

/// How a process ended.
struct ProcessEnd {
    enum class How { exited, killedBySignal, timedOut, notFound };
    How how = How::exited;
    int status = 0;      ///< exit status, or signal
    std::string message; ///< what it wrote to standard error, cut after 64 KB
};

/// The descriptor under which a program that is run finds the file for its result.
inline constexpr int converterResult = 3;

/// Runs a program to its end, without a shell, its standard input and output going nowhere. One still running after
/// `timeLimit` is killed; `memoryLimit` is what it may write to, in bytes.
/// `arguments[0]` is the program; one without a slash is looked for in $PATH.
/// It is killed when this process ends, however it ends. `result` is a descriptor that it gets as `converterResult`.
/// @throws std::system_error when no process can be made.
ProcessEnd runProcess(const std::vector<std::string>& arguments, std::chrono::milliseconds timeLimit,
                      std::uint64_t memoryLimit, int result = -1);
