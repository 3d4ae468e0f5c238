#include <algorithm>
#include <cwchar>

#include "commands/CommandFailed.h"
#include "commands/CommandHooks.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "ed/input/CurrentView.h"
#include "ed/input/InputTexts.h"
#include "ed/input/ViewHistory.h"
#include "gi/Scene.h"

#include "acdocman.h"
#include "acedads.h"

namespace {

/// Around what is shown whole, a share of the picture.
constexpr double kMargin = 0.02;

void remember()
{
    ViewHistory::of(*curDoc()).remember();
}

void show(const AcGePoint2d& center, double height)
{
    remember();
    if (!CurrentView::set(center, height))
        say(L"Cette vue n'est pas possible.");
}

void showBox(const Box2d& box, double margin)
{
    if (box.isEmpty())
        return say(L"Il n'y a rien à montrer.");
    remember();
    CurrentView::show({box.minX, box.minY}, {box.maxX, box.maxY}, margin);
}

Box2d boxOf(const AcGePoint3d& a, const AcGePoint3d& b)
{
    Box2d box;
    box.add(a);
    box.add(b);
    return box;
}

void showWindow(const AcGePoint3d& corner)
{
    const auto opposite = Prompt(input_texts::oppositeCorner).required().from(corner).corner();
    const Box2d box = boxOf(corner, *opposite.value);
    if (box.width() == 0.0 && box.height() == 0.0)
        return say(L"La fenêtre est vide.");
    showBox(box, 0.0);
}

void showExtents()
{
    showBox(Scene::of(drawing()).extents(), kMargin);
}

/// The limits count only while nothing is drawn: far from the coordinates of a survey, they would make it a dot.
void showAll()
{
    if (!Scene::of(drawing()).extents().isEmpty())
        return showExtents();
    const auto least = variable<AcGePoint2d>(L"LIMMIN"), most = variable<AcGePoint2d>(L"LIMMAX");
    showBox({least.x, least.y, most.x, most.y}, kMargin);
}

void showObjects()
{
    Box2d box;
    for (const AcDbObjectId id : askObjects())
        box.add(Scene::of(drawing()).extents(id));
    showBox(box, kMargin);
}

/// "2" counts from the whole drawing, "2x" from the present view.
bool showScaled(const std::wstring& text)
{
    wchar_t* end = nullptr;
    const double factor = std::wcstod(text.c_str(), &end);
    const std::wstring behind = end;
    if (end == text.c_str() || !(factor > 0.0) || !(behind.empty() || behind == L"x" || behind == L"X"))
        return false;
    const CurrentView now = CurrentView::get();
    if (!behind.empty()) {
        show(now.center, now.height / factor);
        return true;
    }
    const Box2d box = Scene::of(drawing()).extents();
    const double whole = box.isEmpty() ? now.height : std::max(box.height(), box.width() * now.height / now.width());
    show(now.center, (whole > 0.0 ? whole : 1.0) / factor);
    return true;
}

void askScale()
{
    while (!showScaled(Prompt(L"Entrez un facteur d'échelle (nX) : ").text(false)))
        say(command_texts::zoomFactorWanted);
}

void showAbout()
{
    const AcGePoint3d center = askPoint(L"Spécifiez le centre : ");
    const CurrentView now = CurrentView::get();
    const auto given = Prompt(L"Entrez l'agrandissement (nX) ou la hauteur <" + lengthText(now.height) + L"> : ")
                           .positive()
                           .otherText()
                           .from(center)
                           .distance();
    double height = given.value.value_or(now.height);
    if (!given.keyword.empty()) {
        wchar_t* end = nullptr;
        const double factor = std::wcstod(given.keyword.c_str(), &end);
        if (!(factor > 0.0) || (*end != L'x' && *end != L'X'))
            throw CommandFailed(command_texts::zoomFactorWanted);
        height = now.height / factor;
    }
    show({center.x, center.y}, height);
}

void showFormer()
{
    if (!ViewHistory::of(*curDoc()).goBack())
        say(L"Il n'y a pas de vue précédente.");
}

using ZoomOption = void (*)();
constexpr std::pair<const wchar_t*, ZoomOption> kOptions[] = {
    {L"All", showAll},         {L"Center", showAbout},
    {L"Extents", showExtents}, {L"Previous", showFormer},
    {L"Scale", askScale},      {L"Window", [] { showWindow(askPoint(input_texts::firstCorner)); }},
    {L"Object", showObjects},
};

} // namespace

void commands::zoom()
{
    const auto given = Prompt(L"Spécifiez le coin de la fenêtre, entrez un facteur d'échelle (nX), ou "
                              L"[Tout/Centre/ETendu/Précédent/ECHelle/Fenêtre/Objet] : ")
                           .keywords(L"Tout Centre ETendu Précédent ECHelle Fenêtre Objet _ "
                                     L"All Center Extents Previous Scale Window Object")
                           .otherText()
                           .point();
    if (given.value)
        return showWindow(*given.value);
    for (const auto& [word, option] : kOptions)
        if (given.is(word))
            return option();
    if (!given.keyword.empty() && !showScaled(given.keyword))
        throw CommandFailed(command_texts::zoomFactorWanted);
}

void commands::pan()
{
    const AcGePoint3d base = askPoint(L"Spécifiez le point de base ou le déplacement : ");
    const auto second = Prompt(input_texts::secondPoint).from(base).point();
    const AcGeVector3d shift = second.value ? *second.value - base : base.asVector();
    const CurrentView now = CurrentView::get();
    show({now.center.x - shift.x, now.center.y - shift.y}, now.height);
}

void commands::regenerate()
{
    if (const auto& regenerate = CommandHooks::instance().regenerate)
        regenerate(*curDoc());
    acedRedraw(nullptr, 1);
}
