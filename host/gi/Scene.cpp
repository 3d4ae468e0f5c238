#include "gi/Scene.h"

#include <map>

#include "gi/EntityGraphics.h"
#include "gi/SceneContents.h"
#include "gi/SceneDrawing.h"
#include "rx/HostSession.h"

namespace {

struct Scenes {
    std::map<AcDbDatabase*, std::unique_ptr<Scene>> all;
};

std::map<AcDbDatabase*, std::unique_ptr<Scene>>& scenes()
{
    return HostSession::part<Scenes>().all;
}

} // namespace

Scene& Scene::of(AcDbDatabase& database)
{
    std::unique_ptr<Scene>& scene = scenes()[&database];
    if (!scene) {
        scene = std::make_unique<Scene>(database);
        scene->m_contents->changes().onGoodbye = [&database] { scenes().erase(&database); };
    }
    return *scene;
}

Scene::Scene(AcDbDatabase& database, AcDbObjectId block) : m_contents(std::make_unique<SceneContents>(database, block))
{
}

Scene::~Scene() = default;

AcDbDatabase& Scene::database() const
{
    return m_contents->database();
}

std::uint64_t Scene::revision() const
{
    return m_contents->changes().count;
}

void Scene::onChange(std::function<void()> changed)
{
    m_contents->changes().onChange = std::move(changed);
}

Box2d Scene::extents()
{
    return m_contents->extents();
}

Box2d Scene::extents(AcDbObjectId entity)
{
    const Box2d* box = m_contents->boxOf(entity);
    return box ? *box : Box2d();
}

void Scene::draw(const SceneView& view, GraphicsSink& sink)
{
    if (view.simplified)
        m_contents->figureHeight = view.wholeHeight > 0.0 ? view.wholeHeight : view.height;
    SceneDrawing drawing(m_contents->tables(), m_contents->blocks(), view, m_contents->figureHeight, sink);
    m_contents->walk(drawing, view, [&] { return drawing.isStopped(); });
}

std::optional<Box2d> Scene::takeDamage()
{
    return m_contents->takeDamage();
}

void Scene::draw(AcDbObjectId entity, const SceneView& view, GraphicsSink& sink, const Placement& moved)
{
    SceneDrawing drawing(m_contents->tables(), m_contents->blocks(), view, m_contents->figureHeight, sink);
    if (m_contents->walkEntity(entity, drawing, moved))
        return;
    const AcDbObjectPointer<AcDbEntity> other(entity);
    if (other.object())
        draw(*other.object(), view, sink);
}

void Scene::draw(const AcDbEntity& entity, const SceneView& view, GraphicsSink& sink)
{
    m_contents->update();
    DisplayList list;
    addEntity(entity, Standing::open, list);
    SceneDrawing(m_contents->tables(), m_contents->blocks(), view, m_contents->figureHeight, sink).walk(list);
}

void Scene::visit(const Box2d& box, const std::function<bool(AcDbObjectId, const Box2d&)>& take)
{
    const std::vector<std::uint32_t> found = m_contents->touching(box); // `take` may ask for others
    for (auto at = found.rbegin(); at != found.rend(); ++at)
        if (!take(m_contents->entityAt(*at), m_contents->boxAt(*at)))
            return;
}
