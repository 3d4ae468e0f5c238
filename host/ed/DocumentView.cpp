#include "ed/DocumentView.h"

#include <cmath>

#include "ap/DocumentList.h"
#include "ed/SystemVariables.h"

namespace {

constexpr std::size_t mostFormer = 100;

template <class Value>
Value valueOf(const wchar_t* name)
{
    return std::get<Value>(SystemVariables::instance().value(name).value());
}

} // namespace

DocumentViews& DocumentViews::instance()
{
    static DocumentViews views;
    return views;
}

ViewedArea DocumentViews::current() const
{
    return {valueOf<AcGePoint3d>(L"VIEWCTR"), valueOf<double>(L"VIEWSIZE")};
}

double DocumentViews::aspect() const
{
    const auto pixels = valueOf<AcGePoint2d>(L"SCREENSIZE");
    return pixels.x > 0.0 && pixels.y > 0.0 ? pixels.x / pixels.y : 1.0;
}

bool DocumentViews::show(const ViewedArea& area, Former former)
{
    AcApDocument* document = curDoc();
    const double sum = area.center.x + area.center.y + area.height;
    if (!document || !std::isfinite(sum) || !(area.height > 0.0))
        return false;
    const ViewedArea before = current();
    if (before == area)
        return true;
    std::vector<ViewedArea>& stack = m_former.of(*document);
    if (former == Former::kept)
        stack.push_back(before);
    if (stack.size() > mostFormer)
        stack.erase(stack.begin());
    assign(area);
    return true;
}

bool DocumentViews::showFormer()
{
    AcApDocument* document = curDoc();
    if (!document || m_former.of(*document).empty())
        return false;
    std::vector<ViewedArea>& stack = m_former.of(*document);
    const ViewedArea former = stack.back();
    stack.pop_back();
    assign(former);
    return true;
}

void DocumentViews::assign(const ViewedArea& area) const
{
    SystemVariables& variables = SystemVariables::instance();
    variables.assign(L"VIEWCTR", area.center);
    variables.assign(L"VIEWSIZE", area.height);
    if (m_changed)
        m_changed(*curDoc());
}
