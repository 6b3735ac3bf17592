#include <map>
#include <memory>

#include "cli/building.h"
#include "cli/command_parts.h"
#include "cli/commands.h"
#include "cli/live_commands.h"
#include "cli/sheet_command.h"

namespace {

// `sheet MODEL.qhm INPUT.csv [OUT.html]` or, on the running host, `sheet INPUT.csv [OUT.html]`.
ExitCode MakeSheet(const std::vector<std::string>& files, SheetRequest request) {
    const bool isRecorded =
        !files.empty() && (files[0].ends_with(".qhm") || IsTableFolder(files[0]));
    const std::size_t sources = isRecorded ? 2 : 1;
    if (files.size() < sources || files.size() > sources + 1)
        return WrongUsage(
            "sheet takes MODEL.qhm and INPUT.csv, or INPUT.csv alone, and then OUT.html");
    if (files.size() > sources) request.sheetPath = files[sources];
    return isRecorded ? SheetOfBuilding(files[0], files[1], request)
                      : SheetOfRunningHost(files[0], request);
}

// A choice of words for a setting.
template <typename Setting>
void AddChoice(CLI::App& sheet, const std::string& name, Setting& setting,
               const std::map<std::string, Setting>& choices, const std::string& description) {
    sheet
        .add_option_function<std::string>(
            name, [&setting, choices](const std::string& word) { setting = choices.at(word); },
            description)
        ->check(CLI::IsMember(choices));
}

void AddLook(CLI::App& sheet, SheetOptions& options) {
    AddChoice<SheetLanguage>(sheet, "--lang", options.language,
                             {{"both", SheetLanguage::kBoth},
                              {"ja", SheetLanguage::kJapanese},
                              {"en", SheetLanguage::kEnglish}},
                             "both, which is the default, ja or en");
    AddChoice<SheetDetail>(
        sheet, "--detail", options.detail,
        {{"all", SheetDetail::kAll}, {"worst", SheetDetail::kWorst}, {"none", SheetDetail::kNone}},
        "the details per story: all members, which is the default, the worst "
        "ten of each story, or none");
    sheet
        .add_option_function<std::string>(
            "--plans", [&options](const std::string&) { options.showsDriftPlans = true; },
            "drift: beside each plan, how its floors move")
        ->check(CLI::IsMember({"drift"}));
}

// The command as it could be typed again, for the sheet.
std::string CommandLineOf(const CLI::App& sheet, const std::vector<std::string>& files) {
    std::string line = "quarnel-cli sheet";
    const auto add = [&line](const std::string& word) {
        const bool isPlain = !word.empty() && word.find_first_of(" \t\"'") == std::string::npos;
        line += isPlain ? " " + word : " \"" + word + "\"";
    };
    for (const std::string& file : files)
        add(file);
    for (const CLI::Option* const option : sheet.get_options()) {
        if (option->count() == 0) continue;
        add(option->get_name());
        if (option->get_items_expected_max() == 0) continue;
        for (const std::string& value : option->results())
            add(value);
    }
    return line;
}

}  // namespace

Command AddSheet(CLI::App& app) {
    CLI::App* const sheet =
        AddCommand(app, "sheet", "run the checks, and write the calculation sheet of the run");
    DescribeFile(
        *sheet, "FILES",
        "MODEL.qhm INPUT.csv: a recorded building or a folder of tables, and the Route 2 Input "
        "file; INPUT.csv "
        "alone: the running host; then OUT.html, if the sheet is not to stand beside log "
        "and results");
    const auto request = std::make_shared<SheetRequest>();
    AddLook(*sheet, request->sheet);
    AddReports(*sheet, request->check);
    sheet->add_option("--date", request->check.date,
                      "what the sheet says as the time it was made; without it, now");
    sheet->add_option("--json", request->check.figureFiles.json,
                      "write the figures as JSON to this file");
    sheet->add_flag("--open", request->opens, "open the sheet in the browser (Windows)");
    AddFailOn(*sheet, request->check.failOn);
    AddNoLint(*sheet, request->check);
    return {sheet, [sheet, request](const std::vector<std::string>& files) {
                request->commandLine = CommandLineOf(*sheet, files);
                return MakeSheet(files, *request);
            }};
}
