#include "compute/status_texts.h"

#include <gtest/gtest.h>

// The misspelt words are the tool's own.
TEST(StatusTexts, AreTheLinesOfTheStringTable) {
    const struct {
        int id;
        const char* text;
    } lines[] = {
        {42154, "Input not specified!"},
        {42155, "Input does not exist"},
        {42156, "Unable to establish connection with ORVEK.Pro!"},
        {42157, "Failed to initialize AijCodeRoute2..."},
        {42158, "Preparing for calculation..."},
        {42159, "Setting load information..."},
        {42160, "Setting node information..."},
        {42161, "Setting member information..."},
        {42162, "Setting floor information..."},
        {42163, "Setting story information..."},
        {42164, "Calculating relative displacements..."},
        {42165, "Calculating story stiffness ratio..."},
        {42166, "Calculating ceter of gravity..."},
        {42167, "Calculating story shear..."},
        {42168, "Calculating horizontal story stiffness..."},
        {42169, "Calculating ceter of rigidity..."},
        {42170, "Calculating eccentricity modulus..."},
        {42171, "Saving output..."},
        {42172, "Calculation Complete"},
        {42173, "ORVEK analysis results are not available."},
        {42174, "Please run analysis first."},
        {42175, "Wrong file path..."},
        {42176, "Exception was thrown..."},
        {42177, "Finishes process..."},
        {42178, "Closing error log file..."},
    };
    for (const auto& line : lines)
        EXPECT_STREQ(line.text, TextOf(static_cast<StatusText>(line.id))) << line.id;
}
