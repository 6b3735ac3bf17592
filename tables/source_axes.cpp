#include "tables/source_axes.h"

std::optional<SignedAxis> SignedAxisOf(std::string_view text) {
    if (text.size() != 2) return std::nullopt;
    const std::size_t axis = std::string_view("XYZ").find(text[1]);
    if (axis == std::string_view::npos || (text[0] != '+' && text[0] != '-')) return std::nullopt;
    return SignedAxis{axis, text[0] == '+' ? 1.0 : -1.0};
}

std::optional<SourceAxes> SourceAxes::Of(const std::array<SignedAxis, 3>& axes) {
    const auto& [x, y, z] = axes;
    if (x.axis == y.axis || y.axis == z.axis || z.axis == x.axis) return std::nullopt;
    const bool isEvenOrder = y.axis == (x.axis + 1) % 3;
    if (x.sign * y.sign * z.sign * (isEvenOrder ? 1.0 : -1.0) < 0.0) return std::nullopt;
    SourceAxes turned;
    turned.axes_ = axes;
    return turned;
}

Vec3 SourceAxes::InModel(const Vec3& vector) const {
    std::array<double, 3> model{};
    const std::array<double, 3> tables{vector.x, vector.y, vector.z};
    for (std::size_t i = 0; i < tables.size(); ++i)
        // Taken from 0, so that no -0 comes out of a turned 0.
        model[axes_[i].axis] = axes_[i].sign < 0.0 ? 0.0 - tables[i] : tables[i];
    return {model[0], model[1], model[2]};
}
