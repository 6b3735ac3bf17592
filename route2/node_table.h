#pragma once

#include <cstddef>
#include <vector>

#include "host/vec3.h"
#include "route2/number_index.h"

/// A point's height: its y coordinate, or its z coordinate when Z is vertical.
inline double Vertical(const Vec3& point, bool zIsVertical) {
    return zIsVertical ? point.z : point.y;
}

/// A point's second plan coordinate: its z coordinate, or its y coordinate when Z is vertical.
/// The first one is always x.
inline double PlanZ(const Vec3& point, bool zIsVertical) {
    return zIsVertical ? point.y : point.z;
}

/// The model's nodes as steps look them up; borrows all of it from the engine.
struct NodeTable {
    const std::vector<Vec3>& coords;  ///< mm, in the host's order
    const NumberIndex& positions;     ///< of node numbers in `coords`
    bool zIsVertical;

    double HeightOf(std::size_t position) const { return Vertical(coords[position], zIsVertical); }
};
