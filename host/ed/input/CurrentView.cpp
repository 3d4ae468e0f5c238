#include "ed/input/CurrentView.h"

#include <algorithm>
#include <cmath>

#include "ed/SystemVariables.h"
#include "rx/HostSession.h"

#include "aced.h"
#include "dbsymtb.h"

namespace {

struct Listener {
    std::function<void(AcApDocument&)> changed;
};

std::function<void(AcApDocument&)>& listener()
{
    return HostSession::part<Listener>().changed;
}

template <class T>
T variable(const wchar_t* name, T otherwise)
{
    const auto value = SystemVariables::instance().value(name);
    const T* const held = value ? std::get_if<T>(&*value) : nullptr;
    return held ? *held : otherwise;
}

} // namespace

CurrentView CurrentView::get()
{
    CurrentView view;
    const AcGePoint3d center = variable(L"VIEWCTR", AcGePoint3d(210.0, 148.5, 0.0));
    view.center = {center.x, center.y};
    view.height = variable(L"VIEWSIZE", 297.0);
    view.screen = variable(L"SCREENSIZE", AcGePoint2d(1280.0, 720.0));
    return view;
}

bool CurrentView::set(const AcGePoint2d& center, double height)
{
    constexpr double least = 1e-12;
    AcApDocument* const document = curDoc();
    if (!document || !std::isfinite(center.x) || !std::isfinite(center.y) || !std::isfinite(height) || height < least)
        return false;
    SystemVariables& variables = SystemVariables::instance();
    variables.assign(L"VIEWCTR", AcGePoint3d(center.x, center.y, 0.0));
    variables.assign(L"VIEWSIZE", height);
    if (listener())
        listener()(*document);
    return true;
}

bool CurrentView::show(const AcGePoint2d& min, const AcGePoint2d& max, double margin)
{
    if (!(min.x <= max.x && min.y <= max.y))
        return false;
    const CurrentView now = get();
    const double shape = now.height / now.width();
    const double wanted = std::max(max.y - min.y, (max.x - min.x) * shape);
    const double height = wanted > 0.0 ? wanted : 1.0;
    return set({(min.x + max.x) / 2.0, (min.y + max.y) / 2.0}, height / std::max(1.0 - 2.0 * margin, 0.1));
}

void CurrentView::setScreen(double width, double height)
{
    SystemVariables::instance().assign(L"SCREENSIZE", AcGePoint2d(width, height));
}

void CurrentView::onChange(std::function<void(AcApDocument&)> changed)
{
    listener() = std::move(changed);
}

Acad::ErrorStatus acedSetCurrentView(AcDbViewTableRecord* view, AcDbViewport* viewport)
{
    if (!view || viewport)
        return Acad::eInvalidInput;
    if (!curDoc())
        return Acad::eNoDocument;
    const CurrentView now = CurrentView::get();
    const double shape = now.height / now.width();
    const double height = std::max(view->height(), view->width() * shape);
    const bool isSize = view->height() >= 1e-12 && view->width() >= 1e-12;
    return isSize && CurrentView::set(view->centerPoint(), height) ? Acad::eOk : Acad::eInvalidInput;
}
