#include "text/MTextLayout.h"

#include <algorithm>
#include <cmath>

#include "text/TextMetrics.h"

namespace {

using Kind = MTextPiece::Kind;

constexpr double lineDistance = 5.0 / 3.0; // of baselines, in text heights
constexpr double mostOblique = 1.4835;     // 85 degrees
constexpr double stackedHeight = 0.6, stackedRise = 0.55, stackedDrop = -0.35;

double widthOf(std::wstring_view text, const MTextLook& look)
{
    return look.height * look.widthFactor * textWidth(text);
}

double widthOf(const MTextPiece& piece)
{
    return piece.kind == Kind::stack
               ? stackedHeight * std::max(widthOf(piece.text, piece.look), widthOf(piece.lower, piece.look))
               : widthOf(piece.text, piece.look);
}

struct Line {
    std::vector<MTextPiece> pieces;
    double width = 0.0, height = 0.0;
    MTextPiece::Side side = MTextPiece::Side::byAttachment;

    void add(MTextPiece piece, double pieceWidth)
    {
        width += pieceWidth;
        height = std::max(height, piece.look.height);
        side = piece.side;
        pieces.push_back(std::move(piece));
    }
    void dropBlanksAtEnd()
    {
        for (; !pieces.empty() && pieces.back().kind == Kind::blank; pieces.pop_back())
            width -= widthOf(pieces.back());
    }
};

/// Lines end where they are told to, and where the next word would pass the width.
std::vector<Line> linesOf(std::vector<MTextPiece> pieces, const MTextLayout::Request& request)
{
    std::vector<Line> lines(1);
    for (MTextPiece& piece : pieces) {
        if (piece.kind == Kind::newLine) {
            lines.emplace_back();
            continue;
        }
        const double width = widthOf(piece);
        if (request.lineWidth > 0.0 && piece.kind != Kind::blank && !lines.back().pieces.empty() &&
            lines.back().width + width > request.lineWidth) {
            lines.back().dropBlanksAtEnd();
            lines.emplace_back();
        }
        lines.back().add(std::move(piece), width);
    }
    for (Line& line : lines)
        if (line.pieces.empty())
            line.height = request.height;
    return lines;
}

} // namespace

MTextLayout::MTextLayout(std::wstring_view contents, const Request& request)
{
    MTextLook base;
    base.height = request.height;
    base.widthFactor = request.widthFactor;
    base.oblique = request.oblique;
    const std::vector<Line> lines = linesOf(piecesOf(contents, base), request);
    const auto distance = [&](const Line& line) { return line.height * lineDistance * request.spacingFactor; };
    double width = request.lineWidth, height = lines.front().height;
    if (!(width > 0.0))
        width = std::ranges::max_element(lines, {}, &Line::width)->width;
    for (std::size_t i = 1; i < lines.size(); ++i)
        height += distance(lines[i]);

    const int place = std::clamp(request.attachment - 1, 0, 8), column = place % 3, row = place / 3;
    const double whole = -width * column / 2.0;
    double baseline = height * row / 2.0 - lines.front().height;
    for (const Line& line : lines) {
        if (&line != &lines.front())
            baseline -= distance(line);
        const int side = line.side == MTextPiece::Side::byAttachment ? column : static_cast<int>(line.side);
        addLine(line.pieces, whole + (width - line.width) * side / 2.0, baseline);
    }
    bound();
}

/// Pieces of one look that follow each other become one run.
void MTextLayout::addLine(const std::vector<MTextPiece>& pieces, double x, double y)
{
    bool fresh = true; // the next piece begins a run
    for (const MTextPiece& piece : pieces) {
        const double width = widthOf(piece);
        if (piece.kind == Kind::stack)
            addStack(piece, x, y);
        else if (!fresh && runs.back().look == piece.look) {
            runs.back().text += piece.text;
            runs.back().width += width;
        } else
            addRun(piece.text, piece.look, x, y);
        fresh = piece.kind == Kind::stack;
        x += width;
    }
}

void MTextLayout::addRun(std::wstring text, const MTextLook& look, double x, double y)
{
    if (text.empty())
        return;
    const double width = widthOf(text, look);
    runs.push_back({std::move(text), look, x, y, width});
}

void MTextLayout::addStack(const MTextPiece& piece, double x, double y)
{
    MTextLook lower = piece.look;
    lower.height *= stackedHeight;
    MTextLook upper = lower;
    upper.underlined = upper.underlined || piece.barred;
    addRun(piece.text, upper, x, y + stackedRise * piece.look.height);
    addRun(piece.lower, lower, x, y + stackedDrop * piece.look.height);
}

void MTextLayout::bound()
{
    if (runs.empty())
        return;
    left = right = runs.front().x;
    bottom = top = runs.front().y;
    for (const Run& run : runs) {
        // How far the tops of letters lean.
        const double slant = std::tan(std::clamp(run.look.oblique, -mostOblique, mostOblique)) * run.look.height;
        left = std::min(left, run.x + std::min(slant, 0.0));
        right = std::max(right, run.x + run.width + std::max(slant, 0.0));
        bottom = std::min(bottom, run.y);
        top = std::max(top, run.y + run.look.height);
    }
}
