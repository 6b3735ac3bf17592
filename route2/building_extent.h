#pragma once

#include "route2/findings.h"

/// Height and plan widths of the building, from its floor levels and from both nodes of its story
/// members.
BuildingExtent FormBuildingExtent(const Findings& findings);
