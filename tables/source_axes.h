#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "host/vec3.h"

/// One of the model's axes in one of its two directions.
struct SignedAxis {
    std::size_t axis = 0;  ///< 0 X, 1 Y, 2 Z
    double sign = 1.0;
};

/// "+X" to "-Z"; nothing for any other text.
std::optional<SignedAxis> SignedAxisOf(std::string_view text);

/// How the axes of the tables stand in those of the model: the tables' X, Y and Z each point along
/// one of the model's axes.
class SourceAxes {
public:
    /// The same axes.
    SourceAxes() = default;

    /// Nothing unless each axis of the model is taken once and the three are right-handed.
    static std::optional<SourceAxes> Of(const std::array<SignedAxis, 3>& axes);

    /// A vector of the tables in the model's axes.
    Vec3 InModel(const Vec3& vector) const;

private:
    std::array<SignedAxis, 3> axes_{SignedAxis{0, 1.0}, SignedAxis{1, 1.0}, SignedAxis{2, 1.0}};
};
