#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

/// One row of a list of jobs. Texts are UTF-8, paths narrow and complete.
struct Job {
    std::string name;  ///< of its folder
    std::string title;
    std::string model;  ///< empty: the running host
    std::string input;
    std::size_t line = 0;  ///< in the list, from 1

    bool IsOnRunningHost() const { return model.empty(); }
};

/// A list that cannot be used. The text is one line that names the file and the line.
class JobListError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads a table with the heading `name,model,input` and, if wanted, `title`; paths are relative to
/// the table's folder. Each name is a name for a folder on every system, and no other job's.
/// Throws JobListError.
std::vector<Job> ReadJobList(const std::string& path);
