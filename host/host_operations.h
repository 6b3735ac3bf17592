#pragma once

#include <cstddef>

#include "host/automation.h"

// The host's automation interface, as far as it is used: its class, the root's properties and the
// methods of the root and of five sub-objects. The identifiers are the host's.

inline constexpr const wchar_t* kHostProgId = L"OrvekPro.OpenORVEK";

/// The root's properties behind slots 1 to 10, read in this order. Those called "unused" are bound
/// because binding them is part of what a connection does with the host.
inline constexpr HostOperation kSubObjects[] = {
    {"unused sub-object 1", 3},    {"geometry object", 1}, {"unused sub-object 3", 4},
    {"member property object", 6}, {"support object", 9},  {"load object", 7},
    {"unused sub-object 7", 26},   {"results object", 5},  {"unused sub-object 9", 8},
    {"unused sub-object 10", 41},
};

/// Slots of the objects that queries go to.
enum HostSlot : std::size_t {
    kRoot = 0,
    kGeometry = 2,
    kMemberProperty = 4,
    kSupport = 5,
    kLoad = 6,
    kResults = 8,
};

// Methods of the root.
inline constexpr HostOperation kGetModelFilePath{"GetModelFilePath", 14};
inline constexpr HostOperation kPostConnectCall{"PostConnectCall", 24};
inline constexpr HostOperation kGetBaseUnitSystem{"GetBaseUnitSystem", 34};

// Methods of the geometry object.
inline constexpr HostOperation kGetNodeCount{"GetNodeCount", 43};
inline constexpr HostOperation kGetNodeList{"GetNodeList", 48};
inline constexpr HostOperation kGetNodeCoordinates{"GetNodeCoordinates", 31};
inline constexpr HostOperation kGetMemberCount{"GetMemberCount", 44};
inline constexpr HostOperation kGetMemberList{"GetMemberList", 49};
inline constexpr HostOperation kGetMemberIncidence{"GetMemberIncidence", 54};
inline constexpr HostOperation kIsZUp{"IsZUp", 101};

// Of the member property object and of the support object.
inline constexpr HostOperation kGetMemberRotationAngle{"GetMemberRotationAngle", 42};
inline constexpr HostOperation kGetSupportInfo{"GetSupportInfo", 8};

// Of the load object.
inline constexpr HostOperation kGetPrimaryLoadCaseCount{"GetPrimaryLoadCaseCount", 1};
inline constexpr HostOperation kGetLoadCombinationCount{"GetLoadCombinationCount", 2};
inline constexpr HostOperation kGetPrimaryLoadCaseNumbers{"GetPrimaryLoadCaseNumbers", 3};
inline constexpr HostOperation kGetLoadCombinationNumbers{"GetLoadCombinationNumbers", 4};

// Of the results object.
inline constexpr HostOperation kGetNodeDisplacements{"GetNodeDisplacements", 14};
inline constexpr HostOperation kGetMemberEndForces{"GetMemberEndForces", 18};
inline constexpr HostOperation kAreResultsAvailable{"AreResultsAvailable", 38};
