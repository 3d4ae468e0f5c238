#include "commands/Commands.h"
#include "commands/Drawing.h"
#include "commands/Prompt.h"
#include "commands/Transforming.h"
#include "gemat3d.h"

namespace {

/// The shift that two points, or one of them alone, tell.
AcGeVector3d askShift(const wchar_t* keywordPrompt)
{
    const auto base = Prompt(keywordPrompt).keywords(L"Déplacement _ Displacement").point();
    if (!base.value)
        return askPoint(L"Spécifiez le déplacement : ").asVector();
    const auto second = Prompt(L"Spécifiez le deuxième point ou <utiliser le premier point comme déplacement> : ")
                            .from(*base.value)
                            .point();
    return second.value ? *second.value - *base.value : base.value->asVector();
}

/// The copies that COPY makes, one set for each point.
class CopyRun {
public:
    explicit CopyRun(std::vector<AcDbObjectId> originals) : m_originals(std::move(originals)) {}

    void add(const AcGeVector3d& shift)
    {
        m_sets.push_back(copyObjects(m_originals));
        transformObjects(m_sets.back(), AcGeMatrix3d::translation(shift));
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
    const AcGeVector3d shift = askShift(L"Spécifiez le point de base ou [Déplacement] <déplacement> : ");
    transformObjects(objects, AcGeMatrix3d::translation(shift));
}

void commands::copy()
{
    CopyRun run(askObjects());
    const auto base = Prompt(L"Spécifiez le point de base ou [Déplacement] <déplacement> : ")
                          .keywords(L"Déplacement _ Displacement")
                          .point();
    if (!base.value)
        return run.add(askPoint(L"Spécifiez le déplacement : ").asVector());
    const auto first = Prompt(L"Spécifiez le deuxième point ou <utiliser le premier point comme déplacement> : ")
                           .from(*base.value)
                           .point();
    if (!first.value)
        return run.add(base.value->asVector());
    run.add(*first.value - *base.value);
    for (;;) {
        const auto next = Prompt(L"Spécifiez le deuxième point ou [Quitter/annUler] <Quitter> : ")
                              .keywords(L"Quitter annUler _ Exit Undo")
                              .from(*base.value)
                              .point();
        if (next.value)
            run.add(*next.value - *base.value);
        else if (next.is(L"Undo"))
            run.takeBack();
        else
            return;
    }
}
