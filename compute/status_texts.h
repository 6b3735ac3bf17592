#pragma once

/// Identifiers of the status lines of a Compute run: string-table resources of the desktop tool.
enum class StatusText : int {
    kInputNotSpecified = 42154,
    kInputDoesNotExist = 42155,
    kNoConnection = 42156,
    kInitializeFailed = 42157,
    kPreparing = 42158,
    kLoadInformation = 42159,
    kNodeInformation = 42160,
    kMemberInformation = 42161,
    kFloorInformation = 42162,
    kStoryInformation = 42163,
    kRelativeDisplacements = 42164,
    kStiffnessRatio = 42165,
    kCenterOfGravity = 42166,
    kStoryShear = 42167,
    kHorizontalStiffness = 42168,
    kCenterOfRigidity = 42169,
    kEccentricityModulus = 42170,
    kSavingOutput = 42171,
    kCalculationComplete = 42172,
    kResultsNotAvailable = 42173,
    kRunAnalysisFirst = 42174,
    kWrongFilePath = 42175,
    kExceptionThrown = 42176,
    kFinishes = 42177,
    kClosingLog = 42178,
};

/// The line as the user reads it, for programs without string-table resources. The misspelt
/// words are the tool's own and stay.
const char* TextOf(StatusText id);
