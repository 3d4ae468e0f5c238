#pragma once

#include <cstddef>
#include <memory>
#include <vector>

/// What the host knows while it runs, in one object, so that a test can begin afresh with one of its own.
/// Its parts are objects of the classes that ask for theirs: made when first asked for, ended in the reverse order. A
/// part asked for by another one's end is made anew.
/// What describes the process stays outside: class descriptors, libraries in memory, code pages, glyphs.
class HostSession {
public:
    /// Becomes the current one until its end; then the one before it is so again.
    HostSession();
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    /// The current session's object of a class, which is made without arguments.
    template <class Part>
    static Part& part()
    {
        static const std::size_t slot = takeSlot();
        HostSession& session = current();
        if (slot >= session.m_parts.size() || !session.m_parts[slot])
            session.keep(slot, std::make_unique<Holder<Part>>());
        return static_cast<Holder<Part>&>(*session.m_parts[slot]).part;
    }

private:
    struct Held {
        virtual ~Held() = default;
    };
    template <class Part>
    struct Holder : Held {
        Part part{};
    };

    static HostSession& current();
    static std::size_t takeSlot();
    void keep(std::size_t slot, std::unique_ptr<Held> part);

    std::vector<std::unique_ptr<Held>> m_parts; // by slot
    std::vector<std::size_t> m_made;            // slots, in the order of making
    HostSession* m_before;
};
