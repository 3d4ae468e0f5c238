#include "SceneTest.h"

#include "db/DatabaseImpl.h"

SceneView wideView()
{
    SceneView view;
    view.width = view.height = 200.0;
    view.pixel = 0.01;
    return view;
}

Lines drawn(Scene& scene)
{
    return drawn(scene, wideView());
}

Lines drawn(Scene& scene, const SceneView& view)
{
    RecordingSink sink;
    scene.draw(view, sink);
    return sink.lines;
}

void SceneTest::setVariable(const char* name, int code, double value)
{
    HeaderVariables& header = database.impl().header();
    if (code == 70)
        header.setInteger(name, code, static_cast<std::int64_t>(value));
    else
        header.setReal(name, code, value);
}
