#pragma once

#include <functional>
#include <span>
#include <vector>

#include "gi/DisplayList.h"
#include "gi/SceneView.h"

/// The lines of one family of a hatch pattern within its rings, by the rule of odd and even; only those in the view.
/// Lines closer to each other than the view can tell apart are thinned out.
/// @param rings closed by themselves, in the world
/// @param family in the world
/// @param take gets each line or dash
void patternLines(const std::vector<std::vector<AcGePoint3d>>& rings, const PatternFamily& family,
                  const SceneView& view, const std::function<void(std::span<const AcGePoint3d>)>& take);
