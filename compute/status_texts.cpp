#include "compute/status_texts.h"

const char* TextOf(StatusText id) {
    switch (id) {
        case StatusText::kInputNotSpecified:
            return "Input not specified!";
        case StatusText::kInputDoesNotExist:
            return "Input does not exist";
        case StatusText::kNoConnection:
            return "Unable to establish connection with ORVEK.Pro!";
        case StatusText::kInitializeFailed:
            return "Failed to initialize AijCodeRoute2...";
        case StatusText::kPreparing:
            return "Preparing for calculation...";
        case StatusText::kLoadInformation:
            return "Setting load information...";
        case StatusText::kNodeInformation:
            return "Setting node information...";
        case StatusText::kMemberInformation:
            return "Setting member information...";
        case StatusText::kFloorInformation:
            return "Setting floor information...";
        case StatusText::kStoryInformation:
            return "Setting story information...";
        case StatusText::kRelativeDisplacements:
            return "Calculating relative displacements...";
        case StatusText::kStiffnessRatio:
            return "Calculating story stiffness ratio...";
        case StatusText::kCenterOfGravity:
            return "Calculating ceter of gravity...";
        case StatusText::kStoryShear:
            return "Calculating story shear...";
        case StatusText::kHorizontalStiffness:
            return "Calculating horizontal story stiffness...";
        case StatusText::kCenterOfRigidity:
            return "Calculating ceter of rigidity...";
        case StatusText::kEccentricityModulus:
            return "Calculating eccentricity modulus...";
        case StatusText::kSavingOutput:
            return "Saving output...";
        case StatusText::kCalculationComplete:
            return "Calculation Complete";
        case StatusText::kResultsNotAvailable:
            return "ORVEK analysis results are not available.";
        case StatusText::kRunAnalysisFirst:
            return "Please run analysis first.";
        case StatusText::kWrongFilePath:
            return "Wrong file path...";
        case StatusText::kExceptionThrown:
            return "Exception was thrown...";
        case StatusText::kFinishes:
            return "Finishes process...";
        case StatusText::kClosingLog:
            return "Closing error log file...";
    }
    return "";
}
