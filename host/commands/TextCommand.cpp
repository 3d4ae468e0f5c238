#include <cmath>

#include "commands/CommandFailed.h"
#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/NumberTexts.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "ed/CommandRunner.h"
#include "ge/Angles.h"

#include "dbents.h"
#include "dbsymtb.h"

namespace {

/// Where a text stands about its point. The words are those that users know: HG is "haut, gauche".
struct Justification {
    const wchar_t* word; ///< common to all languages
    AcDb::TextHorzMode horizontal;
    AcDb::TextVertMode vertical;
};

constexpr Justification kJustifications[] = {
    {L"Left", AcDb::kTextLeft, AcDb::kTextBase},    {L"Align", AcDb::kTextAlign, AcDb::kTextBase},
    {L"Fit", AcDb::kTextFit, AcDb::kTextBase},      {L"Center", AcDb::kTextCenter, AcDb::kTextBase},
    {L"Middle", AcDb::kTextMid, AcDb::kTextBase},   {L"Right", AcDb::kTextRight, AcDb::kTextBase},
    {L"TL", AcDb::kTextLeft, AcDb::kTextTop},       {L"TC", AcDb::kTextCenter, AcDb::kTextTop},
    {L"TR", AcDb::kTextRight, AcDb::kTextTop},      {L"ML", AcDb::kTextLeft, AcDb::kTextVertMid},
    {L"MC", AcDb::kTextCenter, AcDb::kTextVertMid}, {L"MR", AcDb::kTextRight, AcDb::kTextVertMid},
    {L"BL", AcDb::kTextLeft, AcDb::kTextBottom},    {L"BC", AcDb::kTextCenter, AcDb::kTextBottom},
    {L"BR", AcDb::kTextRight, AcDb::kTextBottom},
};

constexpr const wchar_t* kJustifyPrompt =
    L"Entrez une option [Gauche/Aligné/aJusté/Centre/Milieu/Droite/HG/HC/HD/MG/MC/MD/BG/BC/BD] : ";
constexpr const wchar_t* kJustifyWords = L"Gauche Aligné aJusté Centre Milieu Droite HG HC HD MG MC MD BG BC BD _ "
                                         L"Left Align Fit Center Middle Right TL TC TR ML MC MR BL BC BR";

/// What the lines of one command share.
struct TextRun {
    AcDbObjectId style;
    Justification place = kJustifications[0];
    AcGePoint3d point, end; ///< `end` of a text between two points
    double height = 1.0, rotation = 0.0;

    bool isBetween() const { return place.horizontal == AcDb::kTextAlign || place.horizontal == AcDb::kTextFit; }
};

Justification askJustification()
{
    const std::wstring word = Prompt(kJustifyPrompt).required().keywords(kJustifyWords).keyword();
    for (const Justification& justification : kJustifications)
        if (word == justification.word)
            return justification;
    return kJustifications[0];
}

void askStyle(TextRun& run)
{
    const std::wstring name =
        Prompt(L"Entrez le nom du style <" + variable<std::wstring>(L"TEXTSTYLE") + L"> : ").name();
    if (name.empty())
        return;
    if (SystemVariables::instance().set(L"TEXTSTYLE", name) != SystemVariables::Answer::done)
        throw CommandFailed(command_texts::isMissing(L"Le style ", name));
    run.style = drawing().textstyle();
}

/// The point that places the text, and how it does.
void askPlace(TextRun& run)
{
    for (;;) {
        const auto start = Prompt(L"Spécifiez le point de départ du texte ou [Justifier/Style] : ")
                               .required()
                               .keywords(L"Justifier Style _ Justify Style")
                               .point();
        if (start.value) {
            run.point = *start.value;
            return;
        }
        if (start.is(L"Style")) {
            askStyle(run);
            continue;
        }
        run.place = askJustification();
        if (run.isBetween()) {
            run.point = askPoint(L"Spécifiez la première extrémité de la ligne de base : ");
            run.end = askPoint(L"Spécifiez la seconde extrémité de la ligne de base : ", run.point);
        } else {
            run.point = askPoint(L"Spécifiez le point d'insertion du texte : ");
        }
        return;
    }
}

double fixedHeight(const TextRun& run)
{
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(run.style);
    return style.object() ? style->textSize() : 0.0;
}

void askHeight(TextRun& run)
{
    run.height = fixedHeight(run);
    if (run.height > 0.0)
        return;
    run.height = variable<double>(L"TEXTSIZE");
    if (run.place.horizontal == AcDb::kTextAlign) // follows from the length
        return;
    const auto given =
        Prompt(L"Spécifiez la hauteur <" + lengthText(run.height) + L"> : ").positive().from(run.point).distance();
    run.height = given.value.value_or(run.height);
    setVariable(L"TEXTSIZE", run.height);
}

void askRotation(TextRun& run)
{
    const AcGeVector3d between = run.end - run.point;
    run.rotation = run.isBetween() ? std::atan2(between.y, between.x)
                                   : Prompt(L"Spécifiez l'angle de rotation du texte <" +
                                            directionText(variable<double>(L"ANGBASE")) + L"> : ")
                                         .from(run.point)
                                         .direction()
                                         .value.value_or(variable<double>(L"ANGBASE"));
}

/// Stretches a text to the length between its points: by its height and its width alike, or by its width alone.
void stretch(AcDbText& text, const TextRun& run)
{
    AcDbExtents box;
    AcDbText level(AcGePoint3d::kOrigin, text.textStringConst(), run.style, run.height);
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(run.style);
    if (level.getGeomExtents(box) != Acad::eOk)
        return;
    const double length = (run.end - run.point).length(), natural = box.maxPoint().x - box.minPoint().x;
    if (!(length > 0.0) || !(natural > 0.0))
        return;
    if (run.place.horizontal == AcDb::kTextAlign)
        text.setHeight(run.height * length / natural);
    else
        text.setWidthFactor(length / natural);
}

void write(const TextRun& run, const std::wstring& line)
{
    auto text = std::make_unique<AcDbText>(run.point, line.c_str(), run.style, run.height, run.rotation);
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(run.style);
    if (style.object()) {
        text->setWidthFactor(style->xScale());
        text->setOblique(style->obliquingAngle());
    }
    text->setHorizontalMode(run.place.horizontal);
    text->setVerticalMode(run.place.vertical);
    if (!text->isDefaultAlignment())
        text->setAlignmentPoint(run.isBetween() ? run.end : run.point);
    if (run.isBetween())
        stretch(*text, run);
    addToDrawing(std::move(text));
}

/// To the place of the next line, below by the usual spacing of lines.
void goDown(TextRun& run)
{
    constexpr double spacing = 5.0 / 3.0;
    const double down = run.rotation - quarterTurn;
    const AcGeVector3d step = AcGeVector3d(std::cos(down), std::sin(down), 0.0) * (run.height * spacing);
    run.point += step;
    run.end += step;
}

std::wstring askLine()
{
    return Prompt(L"Entrez le texte : ").text();
}

} // namespace

void commands::text()
{
    TextRun run;
    run.style = drawing().textstyle();
    say(L"Style de texte courant : « " + variable<std::wstring>(L"TEXTSTYLE") + L" »  Hauteur du texte : " +
        lengthText(variable<double>(L"TEXTSIZE")));
    askPlace(run);
    askHeight(run);
    askRotation(run);
    const bool oneLine = CommandRunner::instance().isCalledByCode(); // programs go on with another command
    for (std::wstring line = askLine(); !line.empty(); line = oneLine ? L"" : askLine()) {
        write(run, line);
        goDown(run);
    }
}
