#include "host/global_forces.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace {

// Three equations: the factors of three unknowns, then the right side.
using Equations = std::array<std::array<double, 4>, 3>;

double Volume(const MemberAxes& axes) {
    const auto& [x, y, z] = axes;
    return std::abs(x.x * (y.y * z.z - y.z * z.y) + x.y * (y.z * z.x - y.x * z.z) +
                    x.z * (y.x * z.y - y.y * z.x));
}

// Puts the row with the largest factor of unknown `i` in row i, and takes the unknown out of the
// rows below.
void Eliminate(Equations& rows, std::size_t i) {
    for (std::size_t k = i + 1; k < rows.size(); ++k)
        if (std::abs(rows[k][i]) > std::abs(rows[i][i])) std::swap(rows[i], rows[k]);
    for (std::size_t k = i + 1; k < rows.size(); ++k) {
        const double factor = rows[k][i] / rows[i][i];
        for (std::size_t column = i; column < rows[k].size(); ++column)
            rows[k][column] -= factor * rows[i][column];
    }
}

// Elimination and not determinants: of axes that nearly lie in one plane, its result sums up to
// the force that was given.
Vec3 Solve(Equations rows) {
    Eliminate(rows, 0);
    Eliminate(rows, 1);
    const double z = rows[2][3] / rows[2][2];
    const double y = (rows[1][3] - rows[1][2] * z) / rows[1][1];
    const double x = (rows[0][3] - rows[0][2] * z - rows[0][1] * y) / rows[0][0];
    return {x, y, z};
}

Vec3 Turn(double globalX, double globalY, double globalZ, const MemberAxes& axes) {
    const auto& [x, y, z] = axes;
    return Solve({{{x.x, y.x, z.x, globalX}, {x.y, y.y, z.y, globalY}, {x.z, y.z, z.z, globalZ}}});
}

}  // namespace

std::optional<SixDoubles> AlongMemberAxes(const SixDoubles& global, const MemberAxes& axes) {
    if (!(Volume(axes) >= kSmallestVolumeOfAxes)) return std::nullopt;
    const Vec3 force = Turn(global[0], global[1], global[2], axes);
    const Vec3 moment = Turn(global[3], global[4], global[5], axes);
    return SixDoubles{force.x, force.y, force.z, moment.x, moment.y, moment.z};
}
