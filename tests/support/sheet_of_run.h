#pragma once

#include <string>

#include "compute/compute_run.h"
#include "sheet/sheet.h"
#include "sheet/sheet_file.h"
#include "tests/support/fake_host.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

/// What the sheet of a whole run on `host` shows, dated, made in a folder of its own.
inline SheetContent ContentOfRun(FakeHost& host, const std::string& input,
                                 const SheetOptions& options = {}) {
    const TestFolder folder;
    if (host.modelPath.empty()) host.modelPath = "tower.ext";
    host.modelPath = folder.Path(host.modelPath);
    const std::string inputPath = folder.Write("input.csv", input);
    StatusLines status;
    ReportPaths reports;
    const RunOutcome outcome = RunCompute(inputPath, [&host] { return &host; }, status, reports,
                                          {.wantsFindings = WantsFindings::kYes});
    SheetSources sources;
    sources.run = {"1.1", "2026-11-21", "tower.qhm", std::nullopt, "input.csv", std::nullopt, true};
    sources.dateIsGiven = true;
    sources.program = "quarnel-cli";
    sources.logPath = "tower.log";
    sources.resultsPath = reports.resultFile;
    sources.options = options;
    SheetContent content =
        FormSheetContent(outcome.findings.value(), CheckInputFile(inputPath), sources);
    content.results.path = "tower.csv";  // the folder's name is another one every time
    return content;
}

/// The sheet of that run.
inline std::string SheetOfRun(FakeHost& host, const std::string& input,
                              const SheetOptions& options = {}) {
    return SheetHtml(ContentOfRun(host, input, options));
}

/// Text of the first cell that shows a figure; marks of notes and inner elements included as they
/// stand. Empty when there is none.
inline std::string CellText(const std::string& html, const std::string& key, int story = 0,
                            const std::string& direction = "") {
    std::string opening = "data-figure=\"" + key + "\"";
    if (story != 0) opening += " data-story=\"" + std::to_string(story) + "\"";
    if (!direction.empty()) opening += " data-direction=\"" + direction + "\"";
    const std::size_t place = html.find(opening);
    if (place == std::string::npos) return "";
    const std::size_t start = html.find('>', place) + 1;
    return html.substr(start, html.find('<', start) - start);
}

/// The part of the page between two places.
inline std::string Section(const std::string& html, const std::string& id) {
    const std::size_t start = html.find("<section id=\"" + id + "\"");
    if (start == std::string::npos) return "";
    return html.substr(start, html.find("</section>", start) - start);
}
