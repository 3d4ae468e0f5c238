#pragma once

#include <map>
#include <vector>

class QLabel;
class QWidget;

/// Which label belongs to which widget of a dialog: first the label whose buddy it is, then that of its row in a form
/// layout, then the nearest one before it on its row or above it. A label without a buddy belongs to one widget only.
std::map<const QWidget*, const QLabel*> labelsOf(const std::vector<QWidget*>& widgets,
                                                 const std::vector<QLabel*>& labels);

/// How far a label stands before a widget of the same window, on its row or above it; infinite when it does not.
double labelDistance(const QWidget& label, const QWidget& widget);
