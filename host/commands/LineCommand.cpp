#include "commands/Commands.h"
#include "commands/CommandTexts.h"
#include "commands/Drawing.h"
#include "commands/Prompt.h"
#include "commands/Variables.h"
#include "ed/input/InputTexts.h"

#include "dbents.h"

namespace {

constexpr const wchar_t* kNextOrClose = L"Spécifiez le point suivant ou [Clore/annUler] : ";

/// The lines of one command, each an entity of its own.
class LineRun {
public:
    explicit LineRun(const AcGePoint3d& start) : m_points{start} {}

    void to(const AcGePoint3d& point)
    {
        m_lines.push_back(addToDrawing(std::make_unique<AcDbLine>(m_points.back(), point)));
        m_points.push_back(point);
    }
    void takeBack()
    {
        if (m_lines.empty())
            return say(command_texts::nothingToUndo);
        eraseObject(m_lines.back());
        m_lines.pop_back();
        m_points.pop_back();
    }
    bool canClose() const { return m_lines.size() >= 2; }
    const AcGePoint3d& first() const { return m_points.front(); }
    const AcGePoint3d& last() const { return m_points.back(); }

private:
    std::vector<AcGePoint3d> m_points;
    std::vector<AcDbObjectId> m_lines;
};

} // namespace

void commands::line()
{
    const auto start = Prompt(input_texts::firstPoint).point();
    LineRun run(start.value.value_or(variable<AcGePoint3d>(L"LASTPOINT"))); // Enter goes on from the last point
    for (;;) {
        Prompt prompt(run.canClose() ? kNextOrClose : command_texts::nextPointOrUndo);
        prompt.from(run.last()).keywords(run.canClose() ? L"Clore annUler _ Close Undo" : command_texts::undoKeyword);
        const auto next = prompt.point();
        if (next.is(L"Undo")) {
            run.takeBack();
            continue;
        }
        if (next.isEmpty())
            return;
        run.to(next.value.value_or(run.first()));
        if (next.is(L"Close"))
            return;
    }
}
