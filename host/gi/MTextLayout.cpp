#include "gi/MTextLayout.h"

#include <algorithm>
#include <cwchar>
#include <optional>

#include "gi/ShownText.h"
#include "gi/TextMetrics.h"

namespace {

constexpr double lineDistance = 5.0 / 3.0; // of baselines, in text heights
constexpr double stackedHeight = 0.6, stackedRise = 0.55, stackedDrop = -0.35;
constexpr double radian = 0.017453292519943295;
constexpr double mostHeight = 1e9; // of what a code asks for, in heights of the text

enum class Side { byAttachment = -1, left = 0, middle = 1, right = 2 };

/// The look of what follows; braces keep it.
struct Format {
    MTextLayout::Run look;
    Side side = Side::byAttachment;
};

/// What is never broken: a word, a blank, a stack of two texts; or the end of a line.
struct Piece {
    enum class Kind { word, blank, stack, newLine } kind = Kind::word;
    Format format;
    std::wstring text, lower;
    bool barred = false; // a line between the two texts of a stack

    double width() const
    {
        const double unit = format.look.height * format.look.widthFactor;
        return kind == Kind::stack ? unit * stackedHeight * std::max(textWidth(text), textWidth(lower))
                                   : unit * textWidth(text);
    }
};

/// Goes through the contents and cuts them into pieces.
class Reader {
public:
    Reader(std::wstring_view contents, const MTextLayout::Request& request) : m_text(contents)
    {
        m_format.look.height = m_base = request.height;
        m_format.look.widthFactor = request.widthFactor;
        m_format.look.oblique = request.oblique;
    }

    std::vector<Piece> read()
    {
        while (m_at < m_text.size())
            take(m_text[m_at++]);
        return std::move(m_pieces);
    }

private:
    wchar_t peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : L'\0'; }

    void add(Piece::Kind kind, std::wstring text = {})
    {
        Piece& piece = m_pieces.emplace_back();
        piece.kind = kind;
        piece.format = m_format;
        piece.text = std::move(text);
    }

    void show(wchar_t c)
    {
        const Piece::Kind kind = c == L' ' || c == L'\t' ? Piece::Kind::blank : Piece::Kind::word;
        if (m_pieces.empty() || m_changed || m_pieces.back().kind != kind || kind == Piece::Kind::blank)
            add(kind);
        m_changed = false;
        m_pieces.back().text.push_back(c == L'\t' ? L' ' : c);
    }

    void take(wchar_t c)
    {
        if (c == L'\\' && m_at < m_text.size())
            return code(m_text[m_at++]);
        if (c == L'%' && peek() == L'%')
            return controlCode();
        if (c == L'\n')
            return add(Piece::Kind::newLine);
        if (c == L'{')
            return m_kept.push_back(m_format);
        if (c == L'}') {
            if (!m_kept.empty()) {
                m_format = m_kept.back();
                m_kept.pop_back();
                m_changed = true;
            }
            return;
        }
        if (c != L'\r')
            show(c);
    }

    void code(wchar_t c)
    {
        m_changed = true;
        MTextLayout::Run& look = m_format.look;
        switch (c) {
        case L'P':
        case L'N':
        case L'X':
            return add(Piece::Kind::newLine);
        case L'~':
            return show(L'\u00A0');
        case L'\\':
        case L'{':
        case L'}':
            m_changed = false;
            return show(c);
        case L'L':
        case L'l':
            look.underlined = c == L'L';
            return;
        case L'O':
        case L'o':
            look.overlined = c == L'O';
            return;
        case L'K':
        case L'k':
            look.struck = c == L'K';
            return;
        case L'S':
            return stack(argument());
        case L'U':
            return unicode();
        case L'C':
            look.color = static_cast<std::int16_t>(std::clamp(std::wcstol(argument().c_str(), nullptr, 10), 0L, 256L));
            look.trueColor = -1;
            return;
        case L'c':
            return trueColor(std::wcstol(argument().c_str(), nullptr, 10));
        case L'H':
            if (const auto height = scaled(argument(), look.height); height && *height < m_base * mostHeight)
                look.height = *height;
            return;
        case L'W':
            look.widthFactor = scaled(argument(), look.widthFactor).value_or(look.widthFactor);
            return;
        case L'Q':
            look.oblique = std::clamp(std::wcstod(argument().c_str(), nullptr), -85.0, 85.0) * radian;
            return;
        case L'p':
            return paragraph(argument());
        case L'A':
        case L'F':
        case L'f':
        case L'T':
            argument();
            return;
        default:
            show(L'\\');
            show(c);
        }
    }

    /// Up to the semicolon, which is passed; what a backslash may precede is taken as it stands.
    std::wstring argument()
    {
        const std::size_t end = std::min(m_text.find(L';', m_at), m_text.size());
        std::wstring text(m_text.substr(m_at, end - m_at));
        m_at = std::min(end + 1, m_text.size());
        return text;
    }

    /// A value, or a factor of the present one: "0.7x".
    static std::optional<double> scaled(const std::wstring& text, double present)
    {
        wchar_t* end = nullptr;
        const double value = std::wcstod(text.c_str(), &end);
        const double result = *end == L'x' || *end == L'X' ? present * value : value;
        return result > 0.0 ? std::optional(result) : std::nullopt;
    }

    /// Blue, green, red: the order of the file.
    void trueColor(long value)
    {
        m_format.look.trueColor =
            static_cast<std::int32_t>((value & 0xFF) << 16 | (value & 0xFF00) | (value >> 16 & 0xFF));
    }

    /// Of all that a paragraph may say, the side counts: "xqc".
    void paragraph(const std::wstring& text)
    {
        const std::size_t at = text.find(L'q');
        if (at == std::wstring::npos || at + 1 >= text.size())
            return;
        const wchar_t side = text[at + 1];
        m_format.side = side == L'c'   ? Side::middle
                        : side == L'r' ? Side::right
                        : side == L'l' ? Side::left
                                       : Side::byAttachment;
    }

    void stack(const std::wstring& text)
    {
        const std::size_t at = text.find_first_of(L"/^#");
        if (at == std::wstring::npos || text[at] == L'#') {
            for (const wchar_t c : text)
                show(c == L'#' ? L'/' : c);
            return;
        }
        add(Piece::Kind::stack, text.substr(0, at));
        m_pieces.back().lower = text.substr(at + 1);
        m_pieces.back().barred = text[at] == L'/';
    }

    void unicode()
    {
        constexpr std::size_t length = 7; // "\U+XXXX"
        const std::vector<ShownRun> shown = shownText(m_text.substr(m_at - 2, length));
        m_changed = false;
        if (shown.size() == 1 && shown[0].text.size() == 1) {
            m_at += length - 2;
            return show(shown[0].text[0]);
        }
        show(L'\\');
        show(L'U');
    }

    void controlCode()
    {
        constexpr std::size_t length = 3;
        const std::vector<ShownRun> shown = shownText(m_text.substr(m_at - 1, length));
        if (shown.size() != 1 || shown[0].text.size() != 1)
            return show(L'%');
        m_at += length - 1;
        show(shown[0].text[0]);
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    double m_base = 1.0;
    Format m_format;
    std::vector<Format> m_kept;
    std::vector<Piece> m_pieces;
    bool m_changed = false; // the look, since the last character
};

struct Line {
    std::vector<Piece> pieces;
    double width = 0.0, height = 0.0;
    Side side = Side::byAttachment;
};

/// Lines end where they are told to, and where the next word would pass the width.
std::vector<Line> linesOf(std::vector<Piece> pieces, const MTextLayout::Request& request)
{
    std::vector<Line> lines(1);
    for (Piece& piece : pieces) {
        if (piece.kind == Piece::Kind::newLine) {
            lines.emplace_back();
            continue;
        }
        const double width = piece.width();
        if (request.lineWidth > 0.0 && piece.kind != Piece::Kind::blank && !lines.back().pieces.empty() &&
            lines.back().width + width > request.lineWidth) {
            Line& full = lines.back();
            while (!full.pieces.empty() && full.pieces.back().kind == Piece::Kind::blank) {
                full.width -= full.pieces.back().width();
                full.pieces.pop_back();
            }
            lines.emplace_back();
        }
        Line& line = lines.back();
        line.width += width;
        line.height = std::max(line.height, piece.format.look.height);
        line.side = piece.format.side;
        line.pieces.push_back(std::move(piece));
    }
    for (Line& line : lines)
        if (line.pieces.empty())
            line.height = request.height;
    return lines;
}

/// Pieces of one look that follow each other become one run.
bool goesOn(const MTextLayout::Run& run, const Piece& piece)
{
    MTextLayout::Run look = piece.format.look;
    look.text = run.text;
    look.x = run.x;
    look.y = run.y;
    const auto same = [](const MTextLayout::Run& a, const MTextLayout::Run& b) {
        return a.height == b.height && a.widthFactor == b.widthFactor && a.oblique == b.oblique &&
               a.trueColor == b.trueColor && a.color == b.color && a.underlined == b.underlined &&
               a.overlined == b.overlined && a.struck == b.struck;
    };
    return same(run, look);
}

void addRun(std::vector<MTextLayout::Run>& runs, const Piece& piece, std::wstring text, double x, double y)
{
    MTextLayout::Run run = piece.format.look;
    run.text = std::move(text);
    run.x = x;
    run.y = y;
    runs.push_back(std::move(run));
}

void addStack(std::vector<MTextLayout::Run>& runs, const Piece& piece, double x, double y)
{
    const double height = piece.format.look.height;
    addRun(runs, piece, piece.text, x, y + stackedRise * height);
    runs.back().underlined = piece.barred;
    runs.back().height *= stackedHeight;
    addRun(runs, piece, piece.lower, x, y + stackedDrop * height);
    runs.back().height *= stackedHeight;
}

void placeLine(std::vector<MTextLayout::Run>& runs, const Line& line, double x, double y)
{
    bool fresh = true; // the next piece begins a run
    for (const Piece& piece : line.pieces) {
        if (piece.kind == Piece::Kind::stack) {
            addStack(runs, piece, x, y);
            fresh = true;
        } else if (!fresh && goesOn(runs.back(), piece))
            runs.back().text += piece.text;
        else {
            addRun(runs, piece, piece.text, x, y);
            fresh = false;
        }
        x += piece.width();
    }
}

} // namespace

std::vector<MTextLayout::Run> MTextLayout::lay(std::wstring_view contents) const
{
    const std::vector<Line> lines = linesOf(Reader(contents, m_request).read(), m_request);
    double width = m_request.lineWidth;
    for (const Line& line : lines)
        if (!(m_request.lineWidth > 0.0))
            width = std::max(width, line.width);
    const auto distance = [&](const Line& line) { return line.height * lineDistance * m_request.spacingFactor; };
    double height = lines.front().height;
    for (std::size_t i = 1; i < lines.size(); ++i)
        height += distance(lines[i]);

    const int place = std::clamp(m_request.attachment - 1, 0, 8), column = place % 3, row = place / 3;
    const double left = -width * column / 2.0;
    double baseline = height * row / 2.0 - lines.front().height;
    std::vector<Run> runs;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Line& line = lines[i];
        if (i > 0)
            baseline -= distance(line);
        const int side = line.side == Side::byAttachment ? column : static_cast<int>(line.side);
        placeLine(runs, line, left + (width - line.width) * side / 2.0, baseline);
    }
    return runs;
}
