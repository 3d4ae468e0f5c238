#include <cmath>

#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/FileQuestion.h"
#include "commands/NumberTexts.h"
#include "commands/PlotHabits.h"
#include "commands/Prompt.h"
#include "ed/input/CurrentView.h"
#include "ed/input/InputTexts.h"
#include "ed/PlotHook.h"

#include "acdocman.h"

namespace {

struct Paper {
    const wchar_t* name;
    double width, height; ///< millimetres, upright
};

constexpr Paper kPapers[] = {
    {L"A4", 210.0, 297.0}, {L"A3", 297.0, 420.0}, {L"A2", 420.0, 594.0}, {L"A1", 594.0, 841.0}, {L"A0", 841.0, 1189.0},
};

std::optional<Box2d> askArea()
{
    const std::wstring area = Prompt(L"Spécifiez la zone à tracer [Étendue/Affichage/Fenêtre] <Étendue> : ")
                                  .keywords(L"Étendue Affichage Fenêtre _ Extents Display Window")
                                  .keyword();
    if (area.empty() || area == L"Extents")
        return std::nullopt;
    Box2d box;
    if (area == L"Display") {
        const CurrentView view = CurrentView::get();
        box.add(view.center.x - view.width() / 2.0, view.center.y - view.height / 2.0);
        box.add(view.center.x + view.width() / 2.0, view.center.y + view.height / 2.0);
        return box;
    }
    const AcGePoint3d corner = askPoint(L"Spécifiez le premier coin de la fenêtre : ");
    box.add(corner);
    box.add(*Prompt(input_texts::oppositeCorner).required().from(corner).corner().value);
    return box;
}

void askPaper(PlotRequest& request, PlotHabits& habits)
{
    const std::wstring name = Prompt(L"Entrez le format du papier [A4/A3/A2/A1/A0] <" + habits.paper + L"> : ")
                                  .keywords(L"A4 A3 A2 A1 A0 _ A4 A3 A2 A1 A0")
                                  .keyword();
    const std::wstring way = Prompt(std::wstring(L"Entrez l'orientation [Portrait/pAysage] <") +
                                    (habits.landscape ? L"pAysage" : L"Portrait") + L"> : ")
                                 .keywords(L"Portrait pAysage _ Portrait Landscape")
                                 .keyword();
    if (!name.empty())
        habits.paper = name;
    if (!way.empty())
        habits.landscape = way == L"Landscape";
    for (const Paper& paper : kPapers)
        if (habits.paper == paper.name) {
            request.paperWidth = habits.landscape ? paper.height : paper.width;
            request.paperHeight = habits.landscape ? paper.width : paper.height;
        }
}

void askPens(PlotHabits& habits)
{
    const std::wstring pens = Prompt(std::wstring(L"Entrez les plumes [Couleurs/Noir] <") +
                                     (habits.monochrome ? L"Noir" : L"Couleurs") + L"> : ")
                                  .keywords(L"Couleurs Noir _ Colors Black")
                                  .keyword();
    if (!pens.empty())
        habits.monochrome = pens == L"Black";
}

/// A drawing's unit is the metre of the ground.
void askScale(PlotRequest& request, PlotHabits& habits)
{
    for (;;) {
        const std::wstring usual = habits.denominator > 0 ? std::to_wstring(habits.denominator) : L"Ajuster";
        const auto given =
            Prompt(L"Entrez le dénominateur de l'échelle (500 pour 1/500) ou [Ajuster/Plumes] <" + usual + L"> : ")
                .positive()
                .keywords(L"Ajuster Plumes _ Fit Pens")
                .real();
        if (given.is(L"Pens")) {
            askPens(habits);
            continue;
        }
        const double denominator = given.value ? *given.value : given.isEmpty() ? habits.denominator : 0.0;
        request.scale = denominator > 0.0 ? 1000.0 / denominator : 0.0;
        request.monochrome = habits.monochrome;
        habits.denominator = static_cast<int>(std::lround(denominator));
        return;
    }
}

/// Beside the drawing, under its name; under its title while it has no file.
std::wstring proposedFile()
{
    const AcApDocument& document = *acDocManager->curDocument();
    const std::wstring name = document.isNamedDrawing() ? document.fileName() : document.docTitle();
    return name.substr(0, name.find_last_of(L'.')) + L".pdf";
}

} // namespace

void commands::plot()
{
    const auto& paint = PlotHook::instance().plot;
    if (!paint)
        throw CommandFailed(L"Le tracé n'est pas disponible ici");
    PlotRequest request;
    request.file =
        askFile({L"Entrez le nom du fichier de tracé (.pdf, .svg ou .png)", proposedFile(), L"pdf;svg;png", true});
    request.window = askArea();
    PlotHabits habits = plotHabits();
    askPaper(request, habits);
    askScale(request, habits);
    const std::wstring failure = paint(drawing(), request);
    if (!failure.empty())
        throw CommandFailed(failure);
    keep(habits);
    say(L"Tracé enregistré : " + request.file);
}
