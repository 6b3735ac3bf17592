#pragma once

#include <cstddef>
#include <vector>

#include "route2/findings.h"
#include "route2/node_table.h"

/// The smallest plan rectangle, parallel to the axes, around a set of points. Empty without points.
struct PlanRectangle {
    double lowX = 0.0;
    double highX = 0.0;
    double lowV = 0.0;
    double highV = 0.0;
    bool isEmpty = true;

    void Include(double x, double v);
    double WidthX() const { return highX - lowX; }
    double WidthV() const { return highV - lowV; }
    double Area() const { return WidthX() * WidthV(); }  ///< mm^2

    /// Whether a point lies within, or less than `margin` (mm) beside.
    bool Holds(double x, double v, double margin) const;
};

/// Around the lower nodes of members.
PlanRectangle PlanOf(const std::vector<MemberFindings>& members);

/// What the horizontal members show of each floor level: whether it is a floor or a landing.
class FloorShapes {
public:
    explicit FloorShapes(const Findings& findings);

    /// Number of horizontal members at floor level `level`, an index.
    int HorizontalMembers(std::size_t level) const { return counts_[level]; }

    /// Fewer than three horizontal members, or a rectangle around them of less than a tenth of the
    /// building's plan. Never in a model that has no horizontal members at all: a stick model.
    bool LooksLikeALanding(std::size_t level) const;

private:
    void Add(const Findings& findings, const ModelMember& member);

    std::vector<int> counts_;
    std::vector<PlanRectangle> rectangles_;
    PlanRectangle plan_;
    bool hasHorizontalMembers_ = false;
};
