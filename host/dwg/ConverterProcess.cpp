#include "dwg/ConverterProcess.h"

#include <array>
#include <csignal>
#include <optional>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::size_t longestMessage = 64 * 1024;
constexpr int pauseMilliseconds = 10; // between two looks at a process that says nothing

[[noreturn]] void fail(int error, const char* what)
{
    throw std::system_error(error, std::generic_category(), what);
}

/// The two ends of a pipe; what we read never blocks.
class Pipe {
public:
    Pipe()
    {
        if (pipe2(m_ends.data(), O_CLOEXEC) != 0)
            fail(errno, "pipe");
        fcntl(readEnd(), F_SETFL, O_NONBLOCK);
    }
    ~Pipe()
    {
        close(m_ends[0]);
        closeWriteEnd();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int readEnd() const { return m_ends[0]; }
    int writeEnd() const { return m_ends[1]; }
    void closeWriteEnd()
    {
        if (m_ends[1] >= 0)
            close(std::exchange(m_ends[1], -1));
    }

private:
    std::array<int, 2> m_ends{-1, -1};
};

/// A process of ours; one that is still running when this goes out of scope is killed.
class Process {
public:
    /// Nothing when there is no such program.
    static std::optional<pid_t> start(const std::vector<std::string>& arguments, int standardError, int result);

    explicit Process(pid_t id) : m_id(id) {}
    ~Process()
    {
        if (!m_ended)
            end();
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void end()
    {
        kill(m_id, SIGKILL);
        look(0);
    }
    bool hasEnded()
    {
        if (!m_ended)
            look(WNOHANG);
        return m_ended;
    }
    int waitStatus() const { return m_waitStatus; }

private:
    void look(int options)
    {
        pid_t seen = 0;
        do
            seen = waitpid(m_id, &m_waitStatus, options);
        while (seen < 0 && errno == EINTR);
        m_ended = seen != 0;
    }

    pid_t m_id;
    bool m_ended = false;
    int m_waitStatus = 0;
};

/// In the new process, which may do little before it becomes another program. Does not return.
[[noreturn]] void become(char* const* arguments, pid_t parent, int standardError, int result, int failure)
{
    constexpr int notStarted = 127;
    prctl(PR_SET_PDEATHSIG, SIGKILL); // it has nothing to do without the program that asked
    if (getppid() != parent)
        _exit(notStarted);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
    dup2(standardError, STDERR_FILENO);
    if (result == converterResult)
        fcntl(result, F_SETFD, 0);
    else if (result >= 0)
        dup2(result, converterResult);
    execvp(arguments[0], arguments);
    const int error = errno;
    if (write(failure, &error, sizeof error) != static_cast<ssize_t>(sizeof error))
        _exit(notStarted);
    _exit(notStarted);
}

std::optional<pid_t> Process::start(const std::vector<std::string>& arguments, int standardError, int result)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    Pipe failure; // closed by the start of the other program
    // Out of the way of the descriptor that the result gets.
    const int told = fcntl(failure.writeEnd(), F_DUPFD_CLOEXEC, converterResult + 1);
    const int errors = fcntl(standardError, F_DUPFD_CLOEXEC, converterResult + 1);
    const pid_t parent = getpid();
    const pid_t id = told < 0 || errors < 0 ? -1 : fork();
    const int forkError = errno;
    if (id == 0)
        become(argv.data(), parent, errors, result, told);
    close(told);
    close(errors);
    if (id < 0)
        fail(forkError, argv[0]);
    failure.closeWriteEnd();
    pollfd watched{failure.readEnd(), POLLIN, 0};
    while (poll(&watched, 1, -1) < 0 && errno == EINTR) {
    }
    int error = 0;
    if (read(failure.readEnd(), &error, sizeof error) != static_cast<ssize_t>(sizeof error))
        return id;
    Process(id).look(0);
    if (error == ENOENT || error == EACCES || error == ENOTDIR)
        return std::nullopt;
    fail(error, argv[0]);
}

void limitMemory(pid_t id, std::uint64_t bytes)
{
    // What it writes to, not its address space: WebAssembly reserves many GB that it never touches. Its result lies in
    // memory too, as a file without a name.
    const rlimit limit{bytes, bytes};
    for (const auto resource : {RLIMIT_DATA, RLIMIT_FSIZE})
        if (prlimit(id, resource, &limit, nullptr) != 0 && errno != ESRCH)
            fail(errno, "prlimit");
}

/// Takes of what is there, and returns though more should come all the time: someone looks at the clock. What comes
/// after `longestMessage` is thrown away, so that the process never waits for us.
void drain(int descriptor, std::string& message)
{
    std::array<char, 4096> buffer;
    constexpr int mostReads = 64;
    ssize_t count = 0;
    for (int i = 0; i < mostReads && (count = read(descriptor, buffer.data(), buffer.size())) > 0; ++i)
        message.append(buffer.data(), std::min(static_cast<std::size_t>(count), longestMessage - message.size()));
}

} // namespace

ProcessEnd runProcess(const std::vector<std::string>& arguments, std::chrono::milliseconds timeLimit,
                      std::uint64_t memoryLimit, int result)
{
    const auto deadline = std::chrono::steady_clock::now() + timeLimit;
    Pipe errors;
    const std::optional<pid_t> id = Process::start(arguments, errors.writeEnd(), result);
    if (!id)
        return {ProcessEnd::How::notFound, 0, ""};
    Process process(*id);
    errors.closeWriteEnd();
    limitMemory(*id, memoryLimit);

    ProcessEnd end;
    while (!process.hasEnded()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            process.end();
            end.how = ProcessEnd::How::timedOut;
            return end;
        }
        // A closed pipe is always ready: the pause is then slept, not polled.
        pollfd watched{errors.readEnd(), POLLIN, 0};
        if (poll(&watched, 1, pauseMilliseconds) > 0 && (watched.revents & POLLIN) == 0)
            poll(nullptr, 0, pauseMilliseconds);
        drain(errors.readEnd(), end.message);
    }
    drain(errors.readEnd(), end.message);
    const int status = process.waitStatus();
    end.how = WIFEXITED(status) ? ProcessEnd::How::exited : ProcessEnd::How::killedBySignal;
    end.status = WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
    return end;
}
