#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/distinct_files.h"

/// The files of one run, known once the host has named its model.
struct RunFiles {
    std::string input;
    std::string model;  ///< as the host answers; empty when it has none
    std::string log;
    std::string results;
};

/// The reports of a run stand beside the model; with `reportFolder`, in that folder.
RunFiles FilesOfRun(const std::string& input, const std::string& model,
                    const std::string& reportFolder = {});

/// The path after which reports in another folder are named, in the model's place: they carry the
/// input file's name too, so that variants of one model do not overwrite one another. Of tower.qhm
/// and variant2.csv: FOLDER/tower.variant2.aijR2Log.txt and so on.
std::string NameOfReportsIn(const std::string& folder, const std::string& model,
                            const std::string& input);

/// Looks at the files of a run before any of them is opened: why the run must not go on, one
/// sentence without a stop, or no value.
using FileGuard = std::function<std::optional<std::string>(const RunFiles&)>;

/// Refuses a run whose reports would destroy the input file or the model. Reports that are one file
/// are left to the run, which then has no results.
std::optional<std::string> RequireSourcesKept(const RunFiles& files);

/// Refuses a run unless its input, model, log and results, all `others` and the files that standard
/// output and standard error were sent to are different ones. `others` are what else the command
/// reads or writes.
FileGuard RequireAllDistinct(std::vector<NamedFile> others = {});
