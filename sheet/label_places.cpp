#include "sheet/label_places.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Labels that touch each other: they lie one gap apart, about the mean of their wanted places.
struct Cluster {
    double sum = 0.0;  // of the places wanted for its first label
    std::size_t count = 0;

    double First() const { return sum / static_cast<double>(count); }
    double Last(double gap) const { return First() + gap * static_cast<double>(count - 1); }
};

void Join(Cluster& cluster, const Cluster& next, double gap) {
    cluster.sum += next.sum - gap * static_cast<double>(cluster.count * next.count);
    cluster.count += next.count;
}

double SharedArea(const Rectangle& a, const Rectangle& b) {
    const double width = std::min(a.right, b.right) - std::max(a.left, b.left);
    const double height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return width > 0.0 && height > 0.0 ? width * height : 0.0;
}

}  // namespace

std::vector<double> SpreadApart(std::vector<double> wanted, double gap, double lowest,
                                double highest) {
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const double before = gap * static_cast<double>(i);
        const double behind = gap * static_cast<double>(wanted.size() - 1 - i);
        wanted[i] = std::max(lowest + before, std::min(wanted[i], highest - behind));
    }
    std::vector<Cluster> clusters;
    for (const double place : wanted) {
        clusters.push_back({place, 1});
        while (clusters.size() > 1) {
            Cluster& before = clusters[clusters.size() - 2];
            if (before.Last(gap) + gap <= clusters.back().First()) break;
            Join(before, clusters.back(), gap);
            clusters.pop_back();
        }
    }
    std::vector<double> places;
    for (const Cluster& cluster : clusters)
        for (std::size_t i = 0; i < cluster.count; ++i)
            places.push_back(cluster.First() + gap * static_cast<double>(i));
    return places;
}

void LabelPlaces::OccupyLine(Point from, Point to, double width) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (from.x == to.x || from.y == to.y) {
        const Rectangle box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x),
                            std::max(from.y, to.y)};
        Occupy(box.Grown(width / 2.0));
        return;
    }
    const int pieces = std::clamp(static_cast<int>(length / 1.5) + 1, 1, 200);
    for (int i = 0; i < pieces; ++i) {
        const double a = static_cast<double>(i) / pieces, b = static_cast<double>(i + 1) / pieces;
        const double x1 = from.x + a * (to.x - from.x), x2 = from.x + b * (to.x - from.x);
        const double y1 = from.y + a * (to.y - from.y), y2 = from.y + b * (to.y - from.y);
        const Rectangle box{std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
        Occupy(box.Grown(width / 2.0));
    }
}

double LabelPlaces::Covered(const Rectangle& box, double enough) const {
    double covered = 20.0 * (box.Width() * box.Height() - SharedArea(box, page_));
    for (const Rectangle& other : occupied_) {
        if (!box.Overlaps(other)) continue;
        covered += SharedArea(box, other);
        if (covered >= enough) break;
    }
    return covered;
}

Rectangle LabelPlaces::Take(std::span<const Rectangle> candidates) {
    constexpr double kRoomAround = 0.25;  // mm
    constexpr double kNothing = 1e-9;     // mm^2
    Rectangle best = candidates.front();
    double least = std::numeric_limits<double>::infinity();
    for (const Rectangle& candidate : candidates) {
        const double covered = Covered(candidate.Grown(kRoomAround), least);
        if (!(covered < least - kNothing)) continue;
        best = candidate;
        least = covered;
        if (least <= kNothing) break;
    }
    Occupy(best);
    return best;
}
