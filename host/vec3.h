#pragma once

/// A point or a direction in the host's global axes.
struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
