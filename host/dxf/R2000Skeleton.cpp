#include "dxf/R2000Skeleton.h"

#include <algorithm>

namespace {

constexpr char keyGroups[] = "ACAD_GROUP";
constexpr char keyLayouts[] = "ACAD_LAYOUT";
constexpr char keyMultilines[] = "ACAD_MLINESTYLE";
constexpr char keyPlotSettings[] = "ACAD_PLOTSETTINGS";
constexpr char keyPlotStyles[] = "ACAD_PLOTSTYLENAME";

bool isIn(const std::vector<std::string_view>& keys, std::string_view key)
{
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

void startObject(DxfTagWriter& out, std::string_view type, std::uint64_t handle, std::uint64_t owner)
{
    out.rawText(0, type);
    out.handle(5, handle);
    out.handle(330, owner);
}

} // namespace

R2000Skeleton::R2000Skeleton(const NewHandle& newHandle)
{
    for (std::uint64_t* handle : {&m_groups, &m_layouts, &m_multilineStyles, &m_plotSettings, &m_plotStyles,
                                  &m_normalPlotStyle, &m_modelLayout, &m_paperLayout, &m_standardMultiline})
        *handle = newHandle();
}

void R2000Skeleton::writeClasses(DxfTagWriter& out, const std::set<std::string>& present) const
{
    constexpr const char* classes[][2] = {{"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
                                          {"ACDBPLACEHOLDER", "AcDbPlaceHolder"},
                                          {"LAYOUT", "AcDbLayout"}};
    for (const auto& [name, cppName] : classes) {
        if (present.contains(name))
            continue;
        out.rawText(0, "CLASS");
        out.rawText(1, name);
        out.rawText(2, cppName);
        out.rawText(3, "ObjectDBX Classes");
        out.integer(90, 0);
        out.integer(280, 0);
        out.integer(281, 0);
    }
}

void R2000Skeleton::startRoot(DxfTagWriter& out, std::uint64_t root) const
{
    startObject(out, "DICTIONARY", root, 0);
    out.rawText(100, "AcDbDictionary");
    out.integer(281, 1); // keep entries when drawings are merged
}

void R2000Skeleton::writeRootEntries(DxfTagWriter& out, const std::vector<std::string_view>& present) const
{
    const Entry entries[] = {{keyGroups, m_groups},
                             {keyLayouts, m_layouts},
                             {keyMultilines, m_multilineStyles},
                             {keyPlotSettings, m_plotSettings},
                             {keyPlotStyles, m_plotStyles}};
    for (const Entry& entry : entries) {
        if (isIn(present, entry.key))
            continue;
        out.rawText(3, entry.key);
        out.handle(350, entry.handle);
    }
}

void R2000Skeleton::writeObjects(DxfTagWriter& out, std::uint64_t root, const std::vector<std::string_view>& present,
                                 std::uint64_t model, std::uint64_t paper) const
{
    constexpr wchar_t paperName[] = L"Présentation1";
    if (!isIn(present, keyGroups))
        dictionary(out, m_groups, root, {});
    if (!isIn(present, keyLayouts)) {
        dictionary(out, m_layouts, root, {{L"Model", m_modelLayout}, {paperName, m_paperLayout}});
        layout(out, m_modelLayout, L"Model", 0, model);
        layout(out, m_paperLayout, paperName, 1, paper);
    }
    if (!isIn(present, keyMultilines)) {
        dictionary(out, m_multilineStyles, root, {{L"STANDARD", m_standardMultiline}});
        multilineStyle(out);
    }
    if (!isIn(present, keyPlotSettings))
        dictionary(out, m_plotSettings, root, {});
    if (!isIn(present, keyPlotStyles))
        plotStyles(out, root);
}

void R2000Skeleton::dictionary(DxfTagWriter& out, std::uint64_t handle, std::uint64_t owner,
                               const std::vector<std::pair<std::wstring_view, std::uint64_t>>& entries) const
{
    startObject(out, "DICTIONARY", handle, owner);
    out.rawText(100, "AcDbDictionary");
    out.integer(281, 1);
    for (const auto& [key, value] : entries) {
        out.text(3, key);
        out.handle(350, value);
    }
}

void R2000Skeleton::plotStyles(DxfTagWriter& out, std::uint64_t root) const
{
    startObject(out, "ACDBDICTIONARYWDFLT", m_plotStyles, root);
    out.rawText(100, "AcDbDictionary");
    out.integer(281, 1);
    out.rawText(3, "Normal");
    out.handle(350, m_normalPlotStyle);
    out.rawText(100, "AcDbDictionaryWithDefault");
    out.handle(340, m_normalPlotStyle);
    startObject(out, "ACDBPLACEHOLDER", m_normalPlotStyle, m_plotStyles);
}

void R2000Skeleton::multilineStyle(DxfTagWriter& out) const
{
    startObject(out, "MLINESTYLE", m_standardMultiline, m_multilineStyles);
    out.rawText(100, "AcDbMlineStyle");
    out.rawText(2, "STANDARD");
    out.integer(70, 0);
    out.rawText(3, "");
    out.integer(62, 256);
    out.real(51, 90.0);
    out.real(52, 90.0);
    out.integer(71, 2);
    for (const double offset : {0.5, -0.5}) {
        out.real(49, offset);
        out.integer(62, 256);
        out.rawText(6, "BYLAYER");
    }
}

// Plot settings of a sheet never set up: no plotter, no paper, drawn at its size.
void R2000Skeleton::layout(DxfTagWriter& out, std::uint64_t handle, std::wstring_view name, int tab,
                           std::uint64_t block) const
{
    constexpr int usesModelType = 1024;
    constexpr double unknownExtent = 1e20;
    startObject(out, "LAYOUT", handle, m_layouts);
    out.rawText(100, "AcDbPlotSettings");
    for (const int code : {1, 2, 4, 6})
        out.rawText(code, "");
    for (int code = 40; code <= 49; ++code)
        out.real(code, 0.0);
    out.real(140, 0.0);
    out.real(141, 0.0);
    out.real(142, 1.0);
    out.real(143, 1.0);
    out.integer(70, tab == 0 ? usesModelType : 0);
    for (const int code : {72, 73, 74})
        out.integer(code, 0);
    out.rawText(7, "");
    out.integer(75, 16);
    out.real(147, 1.0);
    out.real(148, 0.0);
    out.real(149, 0.0);
    out.rawText(100, "AcDbLayout");
    out.text(1, name);
    out.integer(70, 1);
    out.integer(71, tab);
    for (const int code : {10, 20})
        out.real(code, 0.0);
    out.real(11, 420.0);
    out.real(21, 297.0);
    out.point(12, 0.0, 0.0, 0.0);
    out.point(14, unknownExtent, unknownExtent, unknownExtent);
    out.point(15, -unknownExtent, -unknownExtent, -unknownExtent);
    out.real(146, 0.0);
    out.point(13, 0.0, 0.0, 0.0);
    out.point(16, 1.0, 0.0, 0.0);
    out.point(17, 0.0, 1.0, 0.0);
    out.integer(76, 0);
    out.handle(330, block);
}
