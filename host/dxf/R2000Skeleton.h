#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dxf/DxfTagWriter.h"

/// What every R2000 drawing holds and an older one lacks: the root dictionary and what hangs on it, the classes of
/// these objects, and the entries that no symbol table is without.
///
/// Handles are drawn when the object is made, so that other records may refer to it before it is written.
class R2000Skeleton {
public:
    using NewHandle = std::function<std::uint64_t()>;
    explicit R2000Skeleton(const NewHandle& newHandle);

    std::uint64_t normalPlotStyle() const { return m_normalPlotStyle; }
    std::uint64_t modelLayout() const { return m_modelLayout; }
    std::uint64_t paperLayout() const { return m_paperLayout; }

    /// CLASS records of the objects below, but those whose names are in `present`.
    void writeClasses(DxfTagWriter& out, const std::set<std::string>& present) const;

    /// A root dictionary of nothing yet: its records go on with writeRootEntries.
    void startRoot(DxfTagWriter& out, std::uint64_t root) const;
    /// Entries of the root dictionary, but those whose keys are in `present`.
    void writeRootEntries(DxfTagWriter& out, const std::vector<std::string_view>& present) const;
    /// The objects of these entries. `model` and `paper` are the block records of the two spaces.
    void writeObjects(DxfTagWriter& out, std::uint64_t root, const std::vector<std::string_view>& present,
                      std::uint64_t model, std::uint64_t paper) const;

private:
    struct Entry {
        const char* key;
        std::uint64_t handle;
    };
    void dictionary(DxfTagWriter& out, std::uint64_t handle, std::uint64_t owner,
                    const std::vector<std::pair<std::wstring_view, std::uint64_t>>& entries) const;
    void plotStyles(DxfTagWriter& out, std::uint64_t root) const;
    void multilineStyle(DxfTagWriter& out) const;
    void layout(DxfTagWriter& out, std::uint64_t handle, std::wstring_view name, int tab, std::uint64_t block) const;

    std::uint64_t m_groups, m_layouts, m_multilineStyles, m_plotSettings, m_plotStyles;
    std::uint64_t m_normalPlotStyle, m_modelLayout, m_paperLayout, m_standardMultiline;
};
