// A whole run from a building and an input file, both in the bytes: lines of a text model, a line
// "---", then the Route 2 Input file, to which a line FIN is added unless it ends with "!". The
// run must end as every run ends, and leave the same reports when answers are remembered and when
// what was remembered is replayed.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "compute/compute_run.h"
#include "host/recorded_host.h"
#include "host/remembering_host.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/text_model.h"
#include "tests/support/open_files.h"
#include "tests/support/test_folder.h"

namespace {

constexpr std::string_view kDivider = "---\n";
constexpr std::size_t kLongestInput = 4096;

class StatusLines : public StatusList {
public:
    void Clear() override { lines_.clear(); }
    void Append(StatusText line) override { lines_.push_back(line); }
    const std::vector<StatusText>& Lines() const { return lines_; }

private:
    std::vector<StatusText> lines_;
};

struct Reports {
    std::vector<StatusText> status;
    std::string log;
    std::string results;
};

std::string ReadIfThere(const TestFolder& folder, const std::string& name) {
    return folder.Has(name) ? folder.Read(name) : std::string();
}

// Closes what a run has left open at `path`, so that thousands of runs fit into one process.
void CloseLeftOpen(const std::string& path) {
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", none))
        if (std::filesystem::read_symlink(entry.path(), none) == path)
            close(std::stoi(entry.path().filename().string()));
}

// An exception in the last step leaves the results open.
bool LeavesResultsOpen(const std::vector<StatusText>& lines) {
    constexpr std::array kLines{StatusText::kSavingOutput, StatusText::kExceptionThrown};
    return std::search(lines.begin(), lines.end(), kLines.begin(), kLines.end()) != lines.end();
}

Reports Run(HostQueries& host, const TestFolder& folder) {
    std::error_code ignored;
    std::filesystem::remove(folder.Path("model.aijR2Log.txt"), ignored);
    std::filesystem::remove(folder.Path("model.aijR2Result.csv"), ignored);
    StatusLines status;
    ReportPaths reports;
    const std::ptrdiff_t openBefore = OpenFiles();
    RunCompute(
        folder.Path("input.csv"), [&host] { return &host; }, status, reports);

    const auto& lines = status.Lines();
    Check(lines.size() >= 3, "the status list says what happened");
    const std::ptrdiff_t leftOpen = openBefore > 0 && LeavesResultsOpen(lines) ? 1 : 0;
    Check(OpenFiles() == openBefore + leftOpen, "the run leaves no other file open");
    CloseLeftOpen(folder.Path("model.aijR2Result.csv"));
    Check(lines[lines.size() - 2] == StatusText::kFinishes, "the run finishes");
    Check(lines.back() == StatusText::kClosingLog, "the log is closed");
    return {lines, ReadIfThere(folder, "model.aijR2Log.txt"),
            ReadIfThere(folder, "model.aijR2Result.csv")};
}

void CheckSameReports(const Reports& a, const Reports& b, const std::string& what) {
    Check(a.status == b.status, "status lines: " + what);
    CheckSameText(a.log, b.log, "log: " + what);
    CheckSameText(a.results, b.results, "results: " + what);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestFolder folder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t divider = std::min(bytes.find(kDivider), size);
    const RecordedModel model = ReadTextModel(bytes.substr(0, divider));
    std::string input(bytes.substr(std::min(divider + kDivider.size(), size)));
    input.resize(std::min(input.size(), kLongestInput));
    if (!input.ends_with('!')) input += "\nFIN\n";
    folder.Write("input.csv", input);

    const std::string modelPath = folder.Path("model.qhm");
    RecordedHost host(model, modelPath);
    const Reports direct = Run(host, folder);
    RememberingHost remembering(host);
    CheckSameReports(direct, Run(remembering, folder), "remembering changes nothing");
    RecordedHost replayed(remembering.Memory(), modelPath);
    CheckSameReports(direct, Run(replayed, folder), "a replay says the same");
    return 0;
}
