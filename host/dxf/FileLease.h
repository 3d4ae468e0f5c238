#pragma once

#include <cstddef>

/// Watches over the map of a file, so that reading it neither ends the program nor gives another program's bytes.
///
/// The system grants a read lease on the file: a program that opens it for writing, or cuts it, waits until we were
/// told. A signal handler then puts a copy in memory in the map's place, at the same addresses, and lets it go on.
/// A page that the medium cannot give any more (unplugged, damaged) reads as zeros, and is known as lost.
class FileLease {
public:
    /// A lease on a file open for reading and nothing else; null where none is granted: on most network file systems,
    /// on other users' files, on files that are open for writing.
    static FileLease* take(int descriptor);
    /// Starts to watch over the map of the whole file. False where memory lacks, or where the lease is gone by now: the
    /// map is then not to be trusted.
    bool watch(char* map, std::size_t size);
    /// Ends it, and closes the descriptor. The addresses are then the caller's to unmap.
    void release();
    /// The same, without closing the descriptor.
    void giveBack();

    bool anyLost() const;
    /// Whether one of these bytes is lost.
    bool isLost(std::size_t offset, std::size_t length) const;
};
