// A jig: a line whose end follows the cursor, with a keyword that turns it into another question.

#include "ed/input/Transients.h"

#include "aced.h"
#include "dbents.h"
#include "dbjig.h"
#include "dbsymtb.h"
#include "InputTest.h"

namespace {

class EndJig : public AcEdJig {
public:
    EndJig() : m_line(std::make_unique<AcDbLine>(AcGePoint3d(1, 1, 0), AcGePoint3d(1, 1, 0))) {}

    DragStatus sampler() override
    {
        ++samples;
        setUserInputControls(kNullResponseAccepted);
        setKeywordList(L"Origine Rotation _ Origin Rotate");
        AcGePoint3d point;
        const DragStatus status = acquirePoint(point, m_line->startPoint());
        if (status != kNormal)
            return status;
        if (point.distanceTo(m_end) <= 1e-6)
            return kNoChange;
        m_end = point;
        return kNormal;
    }
    Adesk::Boolean update() override
    {
        ++updates;
        m_line->setEndPoint(m_end);
        shown.push_back(Transients::of(*curDoc()).dragged());
        return Adesk::kTrue;
    }
    AcDbEntity* entity() const override { return m_line.get(); }
    AcDbObjectId appended()
    {
        const AcDbObjectId id = append();
        if (!id.isNull())
            static_cast<void>(m_line.release()); // the drawing's from now on
        return id;
    }
    AcGePoint3d end() const { return m_end; }

    int samples = 0, updates = 0;
    std::vector<const AcDbEntity*> shown;

private:
    std::unique_ptr<AcDbLine> m_line;
    AcGePoint3d m_end;
};

class Jig : public InputTest {};

TEST_F(Jig, followsTheCursorUntilAPointIsPicked)
{
    answers.give({L"~5,5", L"~5,5", L"~6,7", L"<8,9>"});
    EndJig jig;
    jig.setDispPrompt(L"Fin de %s <%d> ", L"ligne", 3);
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(jig.samples, 4);
    EXPECT_EQ(jig.updates, 3) << "a sample that changes nothing is no update";
    EXPECT_EQ(jig.end(), AcGePoint3d(8, 9, 0));
    EXPECT_EQ(jig.shown[1], jig.entity());
    EXPECT_EQ(Transients::of(*curDoc()).dragged(), nullptr) << "no longer shown";
    EXPECT_EQ(answers.asked.front().prompt, L"Fin de ligne <3> ");
    EXPECT_EQ(answers.asked.front().kind, InputRequest::Kind::drag);
    EXPECT_EQ(answers.asked.front().base->x, 1.0);

    const AcDbObjectId id = jig.appended();
    const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->endPoint(), AcGePoint3d(8, 9, 0));
}

TEST_F(Jig, aPointPickedWhereTheCursorWasEndsItToo)
{
    answers.give({L"~5,5", L"<5,5>"});
    EndJig jig;
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(jig.updates, 1);
}

TEST_F(Jig, endsWithKeywordsEnterAndEscape)
{
    struct Row {
        const wchar_t* typed;
        AcEdJig::DragStatus status;
    };
    const Row rows[] = {{L"o", AcEdJig::kKW1},
                        {L"_rotate", AcEdJig::kKW2},
                        {L"", AcEdJig::kNull},
                        {L"<Esc>", AcEdJig::kCancel},
                        {L"@3,4", AcEdJig::kNormal}};
    for (const Row& row : rows) {
        answers.give({L"~2,2", row.typed});
        EndJig jig;
        EXPECT_EQ(jig.drag(), row.status);
    }
    answers.give({L"abc", L"4,4"});
    EndJig jig;
    EXPECT_EQ(jig.drag(), AcEdJig::kNormal);
    EXPECT_EQ(answers.refusals.size(), 1U);
}

} // namespace
