#pragma once

#include <stdexcept>
#include <string>
#include <vector>

/// A program that cannot be started. The text is one line that says why.
class ChildProgramError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// How a program ended.
struct ProgramEnd {
    int exitCode = 0;
    int signal = 0;  ///< that killed it; 0: none, and always on Windows
};

/// Runs a program to its end: no input, both of its outputs into the file `outputPath`, which is
/// overwritten. `program` is a path. The arguments arrive as they are. May be called on several
/// threads at once. Throws ChildProgramError.
ProgramEnd RunChildProgram(const std::string& program, const std::vector<std::string>& arguments,
                           const std::string& outputPath);

/// Path of the program that is running; empty where the system does not tell.
std::string OwnProgramPath();
