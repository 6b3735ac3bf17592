#include "cli/lint_command.h"

#include <iostream>

#include "cli/building.h"
#include "cli/live_commands.h"
#include "cli/messages.h"
#include "host/recorded_host.h"
#include "lint/github_report.h"
#include "lint/json_report.h"
#include "lint/lint.h"
#include "lint/text_report.h"
#include "platform/file_lookup.h"
#include "platform/whole_file.h"

namespace {

Language LanguageOf(const LintOptions& options) {
    if (options.language.empty()) return UserLanguage();
    return options.language == "ja" ? Language::kJapanese : Language::kEnglish;
}

std::string Formatted(const LintReport& report, const LintOptions& options) {
    const Language language = LanguageOf(options);
    if (options.format == "json") return JsonReport(report, language);
    if (options.format == "github") return GithubReport(report, language);
    return TextReport(report, language);
}

ExitCode ExitCodeOf(const LintReport& report, bool isStrict) {
    if (!report.check.isRead) return kExitUsage;
    const bool hasErrors = CountOf(report, LintKind::kError) > 0;
    const bool hasWarnings = CountOf(report, LintKind::kWarning) > 0;
    return hasErrors || (isStrict && hasWarnings) ? kExitEndedEarly : kExitComplete;
}

WantsSuggestion WantsOf(const LintOptions& options) {
    return options.suggests ? WantsSuggestion::kYes : WantsSuggestion::kNo;
}

// "tower.csv" becomes "tower.suggested.csv".
std::string SuggestionPath(const LintOptions& options) {
    if (!options.suggestionPath.empty()) return options.suggestionPath;
    const std::string& input = options.inputPath;
    const std::size_t name = input.find_last_of("/\\") + 1;
    const std::size_t dot = input.rfind('.');
    const bool hasExtension = dot != std::string::npos && dot > name;
    return input.substr(0, hasExtension ? dot : input.size()) + ".suggested.csv";
}

// Never over a file that is there. False, with a word on standard error, when it is not written.
bool WriteSuggestion(const std::string& suggestion, const LintOptions& options) {
    const std::string path = SuggestionPath(options);
    if (FileExists(path)) {
        TellError(path +
                  ": not written: there is such a file; name another one: --suggest OUT.csv");
        return false;
    }
    try {
        WriteWholeFile(path, suggestion);
    } catch (const WholeFileError& error) {
        TellError(path + ": not written: " + error.what());
        return false;
    }
    return true;
}

ExitCode Print(const LintReport& report, const LintOptions& options) {
    std::cout << Formatted(report, options) << std::flush;
    if (options.suggests && report.check.isRead && !WriteSuggestion(report.suggestion, options))
        return kExitUsage;
    return ExitCodeOf(report, options.isStrict);
}

// The input file that a recording was made for; empty when it answers every one, or does not say.
std::string InputRecordedFor(const RecordedModel& model) {
    return model.recordedFor ? model.recordedFor->inputName : std::string();
}

ExitCode LintAgainstRecording(const LintOptions& options) {
    const BuildingRead building = ReadBuilding(options.modelPath, options.inputPath);
    if (!building.model) {
        if (options.inputPath.ends_with(".qhm") || IsTableFolder(options.inputPath))
            TellError("the input file comes first: lint INPUT.csv MODEL.qhm");
        return building.whyNot;
    }
    const std::string modelPath = ModelPathOf(options.modelPath);
    RecordedHost host(*building.model, modelPath);
    return Print(
        LintAgainst(options.inputPath, {host, modelPath, InputRecordedFor(*building.model)},
                    WantsOf(options)),
        options);
}

}  // namespace

ExitCode LintOnHost(HostQueries& host, const LintOptions& options) {
    return Print(
        LintAgainst(options.inputPath, {host, host.GetModelFilePath(), ""}, WantsOf(options)),
        options);
}

ExitCode Lint(const LintOptions& options) {
    if (options.onHost) return LintRunningHost(options);
    if (!options.modelPath.empty()) return LintAgainstRecording(options);
    return Print(LintFile(options.inputPath, WantsOf(options)), options);
}
