#include "tables/end_force_signs.h"

EndForceSigns SignsOf(EndForceSense sense, std::size_t end) {
    const double face = end == 0 ? -1.0 : 1.0;
    switch (sense) {
        case EndForceSense::kOnMember:
            return {1.0, 1.0};
        case EndForceSense::kOnNode:
            return {-1.0, -1.0};
        case EndForceSense::kSection:
            return {face, face};
        case EndForceSense::kSectionCompression:
            return {-face, face};
    }
    return {};
}
