#include "ui/script/DialogLabels.h"

#include <limits>
#include <QFormLayout>
#include <QLabel>

namespace {

constexpr double none = std::numeric_limits<double>::infinity();

QRect placeOf(const QWidget& widget)
{
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
}

const QLabel* formLabel(const QWidget& widget)
{
    if (const QWidget* const parent = widget.parentWidget())
        for (const QFormLayout* const form : parent->findChildren<QFormLayout*>())
            if (const auto* label = qobject_cast<QLabel*>(form->labelForField(const_cast<QWidget*>(&widget))))
                return label;
    return nullptr;
}

} // namespace

double labelDistance(const QWidget& label, const QWidget& widget)
{
    constexpr int nearlyTouching = 4;    // pixels by which frames may overlap
    constexpr double aboveIsFar = 1.0e4; // a label on the row wins
    const QRect before = placeOf(label), place = placeOf(widget);
    const bool sameRow = before.center().y() >= place.top() && before.center().y() <= place.bottom();
    if (sameRow && before.right() <= place.left() + nearlyTouching)
        return place.left() - before.right();
    const bool sameColumn = before.left() < place.right() && before.right() > place.left();
    if (sameColumn && before.bottom() <= place.top() + nearlyTouching)
        return aboveIsFar + place.top() - before.bottom();
    return none;
}

std::map<const QWidget*, const QLabel*> labelsOf(const std::vector<QWidget*>& widgets,
                                                 const std::vector<QLabel*>& labels)
{
    std::map<const QWidget*, const QLabel*> found;
    std::map<const QWidget*, double> distances;
    for (const QLabel* const label : labels) {
        if (label->buddy()) {
            found[label->buddy()] = label;
            distances[label->buddy()] = -2.0;
            continue;
        }
        const QWidget* nearest = nullptr;
        double best = none;
        for (const QWidget* const widget : widgets) {
            if (widget->parentWidget() != label->parentWidget())
                continue;
            const double far = formLabel(*widget) == label ? -1.0 : labelDistance(*label, *widget);
            if (far < best) {
                best = far;
                nearest = widget;
            }
        }
        if (nearest && (!found.contains(nearest) || best < distances[nearest])) {
            found[nearest] = label;
            distances[nearest] = best;
        }
    }
    return found;
}
