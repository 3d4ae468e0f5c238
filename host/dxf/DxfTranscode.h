#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "dxf/DxfForm.h"

class DxfFile;

/// Rewrites tags from the form of one file to that of another: ASCII or binary, encoding, line ends.
/// Values keep their meaning; those whose bytes can stay do.
class DxfTranscoder {
public:
    /// New value for a handle found under a group code (5 and 105: the record's own).
    using HandleMap = std::function<std::uint64_t(int groupCode, std::uint64_t handle)>;

    /// Both forms must outlive the transcoder.
    DxfTranscoder(const DxfForm& from, const DxfForm& to, HandleMap handles = {});

    /// Appends the tags in `bytes`, one record or many, to `out`.
    /// @return false, and `out` as it was, if a tag cannot be read or the new form cannot hold it.
    bool append(std::string_view bytes, std::string& out) const;

private:
    const DxfForm& m_from;
    const DxfForm& m_to;
    HandleMap m_handles;
};

/// A whole file in another form, with the mark a binary file opens with. What follows EOF is kept for an ASCII target.
/// $ACADVER and $DWGCODEPAGE stay as they are: `to` must be of the same version and name the same encoding.
/// Throws DxfError, with its line, where a record cannot be carried over.
std::string transcodeFile(const DxfFile& file, const DxfForm& to);
