#include <memory>

#include "cli/batch_command.h"
#include "cli/command_parts.h"
#include "cli/commands.h"

Command AddBatch(CLI::App& app) {
    CLI::App* const batch =
        AddCommand(app, "batch", "make the calculation sheets of many buildings");
    DescribeFile(*batch, "JOBS.csv",
                 "a table with the heading name,model,input and title if wanted; paths are "
                 "relative to its folder; without a model, the running host");
    const auto options = std::make_shared<BatchOptions>();
    batch->add_option("--out", options->folder,
                      "the folder for everything; without it, one beside the list with its name");
    batch
        ->add_option("--jobs", options->atOnce,
                     "how many jobs run beside each other; without it, one per processor")
        ->check(CLI::Range(1, 1024));
    return {batch, [options](const std::vector<std::string>& files) {
                if (files.size() != 1) return WrongUsage("batch takes JOBS.csv");
                return RunBatch(files[0], *options);
            }};
}
