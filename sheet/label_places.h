#pragma once

#include <span>
#include <vector>

#include "sheet/svg.h"

/// Moves labels of a column apart that lie closer than `gap`, as little as possible and in their
/// order, between `lowest` and `highest` as far as there is room. `wanted` ascends; so does the
/// result.
std::vector<double> SpreadApart(std::vector<double> wanted, double gap, double lowest,
                                double highest);

/// Finds room for labels among what is drawn already.
class LabelPlaces {
public:
    /// Labels stay within `page`.
    explicit LabelPlaces(const Rectangle& page) : page_(page) {}

    void Occupy(const Rectangle& box) { occupied_.push_back(box); }

    /// What a line covers.
    void OccupyLine(Point from, Point to, double width);

    /// The first of `candidates` that lies within the page on free room, else the one that covers
    /// least; it is occupied from then on.
    Rectangle Take(std::span<const Rectangle> candidates);

private:
    // How much of `box` is covered or lies beyond the page, mm^2; `enough` ends the count.
    double Covered(const Rectangle& box, double enough) const;

    Rectangle page_;
    std::vector<Rectangle> occupied_;
};
