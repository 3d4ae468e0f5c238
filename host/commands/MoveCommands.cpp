#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/Prompt.h"
#include "commands/Transforming.h"

#include "gemat3d.h"

namespace {

/// What two points, or one of them alone, tell.
struct Shift {
    AcGeVector3d by;
    std::optional<AcGePoint3d> base; ///< nothing when there was but one point
};

Ghost shifting(const std::vector<AcDbObjectId>& objects, const AcGePoint3d& base)
{
    return Ghost(objects, base, [base](const AcGePoint3d& place) { return AcGeMatrix3d::translation(place - base); });
}

Shift askShift(const std::vector<AcDbObjectId>& objects)
{
    const auto base = Prompt(L"Spécifiez le point de base ou [Déplacement] <déplacement> : ")
                          .keywords(L"Déplacement _ Displacement")
                          .point();
    if (!base.value)
        return {askPoint(L"Spécifiez le déplacement : ").asVector(), std::nullopt};
    const Ghost ghost = shifting(objects, *base.value);
    const auto second = Prompt(L"Spécifiez le deuxième point ou <utiliser le premier point comme déplacement> : ")
                            .from(*base.value)
                            .point();
    if (!second.value)
        return {base.value->asVector(), std::nullopt};
    return {*second.value - *base.value, base.value};
}

/// The copies that COPY makes, one set for each point.
class CopyRun {
public:
    explicit CopyRun(std::vector<AcDbObjectId> originals) : m_originals(std::move(originals)) {}

    void add(const AcGeVector3d& shift)
    {
        m_sets.push_back(transformCopies(m_originals, AcGeMatrix3d::translation(shift)));
    }
    void takeBack()
    {
        if (m_sets.empty())
            return say(L"Toutes les copies sont déjà annulées.");
        for (const AcDbObjectId id : m_sets.back())
            eraseObject(id);
        m_sets.pop_back();
    }

private:
    std::vector<AcDbObjectId> m_originals;
    std::vector<std::vector<AcDbObjectId>> m_sets;
};

} // namespace

void commands::move()
{
    const auto objects = askEditable();
    transformObjects(objects, AcGeMatrix3d::translation(askShift(objects).by));
}

void commands::copy()
{
    const auto originals = askObjects();
    CopyRun run(originals);
    const Shift first = askShift(originals);
    run.add(first.by);
    while (first.base) {
        const Ghost ghost = shifting(originals, *first.base);
        const auto next = Prompt(L"Spécifiez le deuxième point ou [Quitter/annUler] <Quitter> : ")
                              .keywords(L"Quitter annUler _ Exit Undo")
                              .from(*first.base)
                              .point();
        if (next.value)
            run.add(*next.value - *first.base);
        else if (next.is(L"Undo"))
            run.takeBack();
        else
            return;
    }
}
