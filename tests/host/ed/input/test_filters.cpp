// Filters of selection sets, and the ways of selecting without asking.

#include <array>

#include "ed/select/SelectionSets.h"
#include "ed/SystemVariables.h"
#include "rx/ResbufChain.h"

#include "aced.h"
#include "acutmem.h"
#include "dbads.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "InputTest.h"

namespace {

constexpr int kOp = -4;

/// A drawing of known entities, each told by a letter:
///   a line on layer "Murs", colour 1         b line on "Haies", by layer
///   c circle of radius 2.5 on "Murs"         d text "Borne 12" on "0", turned by 90 degrees, data of "TOPO"
///   e point at 10,20,30 on "Gelé" (frozen)   f polyline on "Verrou" (locked), vertices 0,0 and 5,5
class Filters : public InputTest {
protected:
    Filters()
    {
        addLayer(L"Murs");
        addLayer(L"Haies");
        addLayer(L"Gelé")->setIsFrozen(true);
        m_layer.close();
        addLayer(L"Verrou")->setIsLocked(true);
        m_layer.close();
        auto* const a = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
        a->setLayer(L"Murs");
        a->setColorIndex(1);
        add(L'a', a);
        auto* const b = new AcDbLine(AcGePoint3d(0, 50, 0), AcGePoint3d(10, 50, 0));
        b->setLayer(L"Haies");
        add(L'b', b);
        auto* const c = new AcDbCircle(AcGePoint3d(100, 0, 0), AcGeVector3d::kZAxis, 2.5);
        c->setLayer(L"Murs");
        add(L'c', c);
        auto* const d =
            new AcDbText(AcGePoint3d(200, 0, 0), L"Borne 12", AcDbObjectId::kNull, 2.0, std::acos(-1.0) / 2);
        addApplication(L"TOPO");
        const ResbufChain data(acutBuildList(1001, L"TOPO", 1070, 7, 0));
        add(L'd', d, data.get());
        auto* const e = new AcDbPoint(AcGePoint3d(10, 20, 30));
        e->setLayer(L"Gelé");
        add(L'e', e);
        auto* const f = new AcDbPolyline(2);
        f->addVertexAt(0, AcGePoint2d(0, 0));
        f->addVertexAt(1, AcGePoint2d(5, 5));
        f->setLayer(L"Verrou");
        add(L'f', f);
    }

    AcDbLayerTableRecord* addLayer(const wchar_t* name)
    {
        AcDbObjectPointer<AcDbLayerTable> table(curDoc()->database()->layerTableId(), AcDb::kForWrite);
        auto* const layer = new AcDbLayerTableRecord;
        layer->setName(name);
        AcDbObjectId id;
        table->add(id, layer);
        layer->close();
        m_layer.open(id, AcDb::kForWrite);
        return m_layer;
    }
    static void addApplication(const wchar_t* name)
    {
        AcDbObjectPointer<AcDbRegAppTable> table(curDoc()->database()->regAppTableId(), AcDb::kForWrite);
        auto* const application = new AcDbRegAppTableRecord;
        application->setName(name);
        table->add(application);
        application->close();
    }
    void add(wchar_t letter, AcDbEntity* entity, const resbuf* data = nullptr)
    {
        m_layer.close();
        const AcDbObjectPointer<AcDbBlockTableRecord> space(curDoc()->database()->currentSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        ASSERT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        if (data) {
            ASSERT_EQ(entity->setXData(data), Acad::eOk);
        }
        entity->close();
        letters.emplace_back(id, letter);
    }

    std::wstring lettersOf(const ads_name set) const
    {
        std::wstring found;
        Adesk::Int32 length = 0;
        acedSSLength(set, &length);
        for (Adesk::Int32 i = 0; i < length; ++i) {
            ads_name name;
            EXPECT_EQ(acedSSName(set, i, name), RTNORM);
            for (const auto& [id, letter] : letters)
                if (id.asOldId() == name[0])
                    found += letter;
        }
        return found;
    }
    /// The letters selected, the youngest first; "!" for a filter or call that is wrong, or when nothing is found.
    std::wstring select(const wchar_t* how, const resbuf* filter, const void* first = nullptr,
                        const void* second = nullptr)
    {
        ads_name set;
        const int status = acedSSGet(how, first, second, filter, set);
        if (status != RTNORM)
            return status == RTERROR ? L"!" : L"?";
        const std::wstring found = lettersOf(set);
        EXPECT_EQ(acedSSFree(set), RTNORM);
        return found;
    }

    std::vector<std::pair<AcDbObjectId, wchar_t>> letters;
    AcDbObjectPointer<AcDbLayerTableRecord> m_layer;
};

TEST_F(Filters, takeWhatTheirItemsSay)
{
    const ads_point ten = {10.0, 20.0, 30.0}, five = {5.0, 5.0, 0.0}, east = {50.0, 50.0, 0.0};
    struct Row {
        const char* name;
        ResbufChain filter;
        const wchar_t* found;
    };
    const auto chain = [](resbuf* built) { return ResbufChain(built); };
    Row rows[] = {
        {"no filter", nullptr, L"fedcba"},
        {"kind", chain(acutBuildList(RTDXF0, L"LINE", 0)), L"ba"},
        {"kinds, any case", chain(acutBuildList(RTDXF0, L"line,Circle", 0)), L"cba"},
        {"kind by pattern", chain(acutBuildList(RTDXF0, L"*LINE", 0)), L"fba"},
        {"anything but", chain(acutBuildList(RTDXF0, L"~*LINE", 0)), L"edc"},
        {"layer", chain(acutBuildList(8, L"murs", 0)), L"ca"},
        {"kind and layer", chain(acutBuildList(RTDXF0, L"LINE", 8, L"MURS", 0)), L"a"},
        {"accents", chain(acutBuildList(8, L"GELÉ", 0)), L"e"},
        {"colour", chain(acutBuildList(62, 1, 0)), L"a"},
        {"colour that is left out: by layer", chain(acutBuildList(62, 256, 0)), L"fedcb"},
        {"linetype that is left out", chain(acutBuildList(6, L"ByLayer", 0)), L"fedcba"},
        {"space", chain(acutBuildList(67, 0, 0)), L"fedcba"},
        {"paper space", chain(acutBuildList(67, 1, 0)), L"!"},
        {"layout", chain(acutBuildList(410, L"Model", 0)), L"fedcba"},
        {"layout, another", chain(acutBuildList(410, L"~Model", 0)), L"!"},
        {"text", chain(acutBuildList(1, L"BORNE #*", 0)), L"d"},
        {"radius", chain(acutBuildList(40, 2.5, 0)), L"c"},
        {"radius or height above", chain(acutBuildList(kOp, L">=", 40, 2.0, 0)), L"dc"},
        {"radius below", chain(acutBuildList(kOp, L"<", 40, 2.5, 0)), L"d"},
        {"different", chain(acutBuildList(kOp, L"!=", 40, 2.5, 0)), L"d"},
        {"anything that has one", chain(acutBuildList(kOp, L"*", 40, 0.0, 0)), L"dc"},
        {"rotation, radians", chain(acutBuildList(50, std::acos(-1.0) / 2, 0)), L"d"},
        {"point", chain(acutBuildList(10, ten, 0)), L"e"},
        {"any of the vertices", chain(acutBuildList(10, five, 0)), L"f"},
        {"coordinates each", chain(acutBuildList(kOp, L">,<,*", 10, east, 0)), L"dc"},
        {"coordinates, the last one goes on", chain(acutBuildList(kOp, L"*,>=", 10, east, 0)), L"b"},
        {"class", chain(acutBuildList(100, L"AcDbCircle", 0)), L"c"},
        {"class above", chain(acutBuildList(100, L"AcDbCurve", 0)), L"fcba"},
        {"data of an application", chain(acutBuildList(1001, L"TOPO", 0)), L"d"},
        {"data, by pattern behind -3", chain(acutBuildList(-3, 1001, L"to*", 0)), L"d"},
        {"data of nobody", chain(acutBuildList(1001, L"AUTRE", 0)), L"!"},
        {"bit", chain(acutBuildList(kOp, L"&", 62, 3, 0)), L"a"},
        {"all bits", chain(acutBuildList(kOp, L"&=", 62, 3, 0)), L"!"},
        {"or", chain(acutBuildList(kOp, L"<OR", RTDXF0, L"POINT", RTDXF0, L"TEXT", kOp, L"OR>", 0)), L"ed"},
        {"not", chain(acutBuildList(kOp, L"<not", RTDXF0, L"LINE", kOp, L"NOT>", 0)), L"fedc"},
        {"xor", chain(acutBuildList(kOp, L"<XOR", RTDXF0, L"LINE", 8, L"Murs", kOp, L"XOR>", 0)), L"cb"},
        {"inside each other",
         chain(acutBuildList(kOp, L"<OR", kOp, L"<AND", RTDXF0, L"LINE", 8, L"Haies", kOp, L"AND>", RTDXF0, L"POINT",
                             kOp, L"OR>", 0)),
         L"eb"},
        {"left open", chain(acutBuildList(kOp, L"<OR", RTDXF0, L"LINE", 0)), L"!"},
        {"closed twice", chain(acutBuildList(kOp, L"OR>", 0)), L"!"},
        {"crossed", chain(acutBuildList(kOp, L"<OR", kOp, L"<AND", 62, 1, kOp, L"OR>", kOp, L"AND>", 0)), L"!"},
        {"not of two", chain(acutBuildList(kOp, L"<NOT", 62, 1, 62, 2, kOp, L"NOT>", 0)), L"!"},
        {"unknown relation", chain(acutBuildList(kOp, L"=>", 62, 1, 0)), L"!"},
        {"relation without an item", chain(acutBuildList(kOp, L">", 0)), L"!"},
        {"order of texts", chain(acutBuildList(kOp, L">", 8, L"Murs", 0)), L"!"},
        {"bits of a real", chain(acutBuildList(kOp, L"&", 40, 2.5, 0)), L"!"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(select(L"X", row.filter.get()), row.found);
    }
}

TEST_F(Filters, seeChangesThatAreNotSavedYet)
{
    {
        const AcDbObjectPointer<AcDbEntity> line(letters[0].first, AcDb::kForWrite);
        line->setLayer(L"Haies");
    }
    {
        const AcDbObjectPointer<AcDbEntity> line(letters[1].first, AcDb::kForWrite);
        line->erase();
    }
    const ResbufChain filter(acutBuildList(8, L"Haies", 0));
    EXPECT_EQ(select(L"X", filter.get()), L"a");
}

TEST_F(Filters, ways)
{
    const ads_point origin = {-1, -1, 0}, corner = {11, 1, 0}, half = {5, 1, 0}, onLine = {5, 50, 0},
                    aside = {5, 40, 0};
    EXPECT_EQ(select(L"_X", nullptr), L"fedcba");
    EXPECT_EQ(select(L"A", nullptr), L"dcba") << "no frozen or locked layers";
    EXPECT_EQ(select(L"L", nullptr), L"f") << "the youngest that shows";
    EXPECT_EQ(select(L"W", nullptr, origin, corner), L"a");
    EXPECT_EQ(select(L"W", nullptr, origin, half), L"!") << "not wholly inside";
    EXPECT_EQ(select(L"C", nullptr, origin, half), L"fa");
    EXPECT_EQ(select(L"C:L", nullptr, origin, half), L"a");
    EXPECT_EQ(select(nullptr, nullptr, onLine), L"b");
    EXPECT_EQ(select(nullptr, nullptr, aside), L"!");
    const ads_point below = {5, -5, 0}, above = {5, 55, 0};
    const ResbufChain fence(acutBuildList(RT3DPOINT, below, RT3DPOINT, above, 0));
    EXPECT_EQ(select(L"F", nullptr, fence.get()), L"fba");
    const ads_point p1 = {90, -10, 0}, p2 = {110, -10, 0}, p3 = {100, 20, 0};
    const ResbufChain polygon(acutBuildList(RTPOINT, p1, RTPOINT, p2, RTPOINT, p3, 0));
    EXPECT_EQ(select(L"WP", nullptr, polygon.get()), L"c");
    EXPECT_EQ(select(L"CP", nullptr, polygon.get()), L"c");
    EXPECT_EQ(select(L"P", nullptr), L"c") << "what was selected last";
    EXPECT_EQ(select(L"I", nullptr), L"!");
    EXPECT_EQ(select(L"Q", nullptr), L"!");
    EXPECT_EQ(select(L"W", nullptr), L"!") << "no corners";
}

TEST_F(Filters, asked)
{
    struct Row {
        const char* name;
        const wchar_t* how;
        std::vector<std::wstring> typed;
        const wchar_t* found;
        std::size_t refused = 0;
        short pickAdd = 2;
    };
    const Row rows[] = {
        {"one by one", nullptr, {L"<5,0>", L"5,50", L""}, L"ab"},
        {"nothing", nullptr, {L""}, L"!"},
        {"Escape", nullptr, {L"<5,0>", L"<Esc>"}, L"?"},
        {"window from left to right", nullptr, {L"<-3,-3>", L"<11,1>", L""}, L"a"},
        {"crossing from right to left", nullptr, {L"<5,-2>", L"<4,1>", L""}, L"a"},
        {"option window", nullptr, {L"f", L"-1,-1", L"@12,2", L""}, L"a"},
        {"common word", nullptr, {L"_c", L"-1,-1", L"5,1", L""}, L"fa"},
        {"common letter where it is free", nullptr, {L"w", L"-1,-1", L"11,1", L""}, L"a"},
        {"last", nullptr, {L"d", L""}, L"f"},
        {"all", nullptr, {L"tout", L""}, L"dcba"},
        {"previous", nullptr, {L"p", L""}, L"dcba"},
        {"removing", nullptr, {L"tou", L"s", L"<5,50>", L"a", L"l", L""}, L"dcaf"},
        {"taking back", nullptr, {L"<5,0>", L"<5,50>", L"n", L""}, L"a"},
        {"fence", nullptr, {L"_f", L"5,-5", L"5,55", L"", L""}, L"fba"},
        {"polygon", nullptr, {L"fp", L"90,-10", L"110,-10", L"100,20", L"", L""}, L"c"},
        {"refused, asked again", nullptr, {L"xyz", L"d", L""}, L"f", 1},
        {"single", L"_:S", {L"<5,0>"}, L"a"},
        {"single, an option does not count", L":S", {L"s", L"a", L"<5,0>"}, L"a"},
        {"unlocked only", L"_:L", {L"_c", L"-1,-1", L"5,1", L""}, L"a"},
        {"AutoLISP", nullptr, {L"(entlast)", L""}, L"f"},
        {"Shift takes out", nullptr, {L"<5,0>", L"<5,50>", L"^5,0>", L""}, L"b"},
        {"in place of the former", nullptr, {L"d", L"<5,0>", L"<5,50>", L""}, L"b", 0, 0},
        {"nothing found: as it was", nullptr, {L"<5,0>", L"<5,20>", L"<6,21>", L""}, L"a", 0, 0},
        {"Shift joins, and leaves", nullptr, {L"<5,0>", L"^5,50>", L"^5,0>", L""}, L"b", 0, 0},
        {"options join all the same", nullptr, {L"<5,0>", L"d", L""}, L"af", 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SystemVariables::instance().set(L"PICKADD", row.pickAdd);
        answers.clear();
        answers.refusals.clear();
        answers.give(row.typed);
        EXPECT_EQ(select(row.how, nullptr), row.found);
        EXPECT_TRUE(answers.areUsedUp());
        EXPECT_EQ(answers.refusals.size(), row.refused);
    }
    SystemVariables::instance().set(L"PICKADD", short{2});
    const ACHAR* prompts[] = {L"Murs : ", L"Pas ceux-là : "};
    answers.give({L"s", L"a", L"d", L""});
    answers.asked.clear();
    EXPECT_EQ(select(L"_:$", nullptr, prompts), L"f");
    EXPECT_EQ(answers.asked[0].prompt, L"Murs : ");
    EXPECT_EQ(answers.asked[1].prompt, L"Pas ceux-là : ");
    const ResbufChain lines(acutBuildList(RTDXF0, L"LINE", 0));
    answers.give({L"tout", L""});
    EXPECT_EQ(select(nullptr, lines.get()), L"ba") << "the filter holds for what is pointed at";
}

TEST_F(Filters, setsHoldEachEntityOnce)
{
    ads_name first, second, set, same;
    ASSERT_EQ(acdbGetAdsName(first, letters[0].first), Acad::eOk);
    ASSERT_EQ(acdbGetAdsName(second, letters[1].first), Acad::eOk);
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(acedSSAdd(first, set, same), RTNORM);
    EXPECT_TRUE(ads_name_equal(set, same));
    EXPECT_EQ(acedSSAdd(second, set, set), RTNORM);
    EXPECT_EQ(acedSSAdd(first, set, set), RTNORM);
    EXPECT_EQ(lettersOf(set), L"ab");
    EXPECT_EQ(acedSSMemb(first, set), RTNORM);
    EXPECT_EQ(acedSSDel(first, set), RTNORM);
    EXPECT_EQ(acedSSDel(first, set), RTERROR);
    EXPECT_EQ(acedSSMemb(first, set), RTERROR);
    EXPECT_EQ(lettersOf(set), L"b");
    EXPECT_EQ(acedSSSetFirst(set, nullptr), RTNORM);
    EXPECT_EQ(select(L"I", nullptr), L"b");
    resbuf* picked = nullptr;
    EXPECT_EQ(acedSSGetFirst(nullptr, &picked), RTNORM);
    ASSERT_TRUE(picked);
    EXPECT_EQ(lettersOf(picked->resval.rlname), L"b");
    acedSSFree(picked->resval.rlname);
    acutRelRb(picked);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    ads_name entity;
    EXPECT_EQ(acedSSName(set, 0, entity), RTERROR);
}

TEST_F(Filters, entitiesArePickedAtAPoint)
{
    ads_name entity;
    ads_point point;
    answers.give({L"<5,50>"});
    ASSERT_EQ(acedEntSel(nullptr, entity, point), RTNORM);
    EXPECT_EQ(entity[0], letters[1].first.asOldId());
    EXPECT_EQ(point[1], 50.0);
    const auto errorNumber = [] {
        resbuf value{};
        acedGetVar(L"ERRNO", &value);
        return value.resval.rint;
    };
    answers.give({L"<5,40>", L"", L"<Esc>", L"d"});
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTERROR);
    EXPECT_EQ(errorNumber(), 7);
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTERROR);
    EXPECT_EQ(errorNumber(), 52);
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTCAN);
    EXPECT_EQ(acedEntSel(L"Objet : ", entity, point), RTNORM);
    EXPECT_EQ(entity[0], letters[5].first.asOldId()) << "the last one";
}

TEST(SelectionSet, takesOutTheFirstOneInConstantTime)
{
    SelectionSet set;
    constexpr std::int64_t count = 200'000;
    for (std::int64_t i = 1; i <= count; ++i)
        set.add(AcDbObjectId().setFromOldId(i * 32));
    // A loop that takes the first one as long as there is one: quadratic, it would take minutes.
    std::int64_t expected = 1;
    for (; !set.empty(); ++expected) {
        const AcDbObjectId first = set.at(0);
        ASSERT_EQ(first.asOldId(), expected * 32);
        ASSERT_TRUE(set.remove(first));
    }
    EXPECT_EQ(expected, count + 1);
}

TEST(SelectionSet, keepsItsOrderWhenSomeLeave)
{
    SelectionSet set;
    for (std::int64_t i = 1; i <= 6; ++i)
        set.add(AcDbObjectId().setFromOldId(i * 32));
    set.remove(AcDbObjectId().setFromOldId(3 * 32));
    set.remove(AcDbObjectId().setFromOldId(1 * 32));
    set.remove(AcDbObjectId().setFromOldId(6 * 32));
    set.add(AcDbObjectId().setFromOldId(1 * 32));
    std::vector<std::int64_t> order;
    for (const AcDbObjectId id : set.objects())
        order.push_back(id.asOldId() / 32);
    EXPECT_EQ(order, (std::vector<std::int64_t>{2, 4, 5, 1}));
    EXPECT_EQ(set.at(1).asOldId(), 4 * 32);
    EXPECT_TRUE(set.at(4).isNull());
}

TEST(SelectionSets, areLimited)
{
    SelectionSets& sets = SelectionSets::instance();
    std::vector<std::array<std::int64_t, 2>> names;
    std::array<std::int64_t, 2> name{};
    while (sets.make(name.data()))
        names.push_back(name);
    EXPECT_EQ(sets.count(), SelectionSets::kMost);
    for (const auto& one : names)
        EXPECT_TRUE(sets.free(one.data()));
}

} // namespace
