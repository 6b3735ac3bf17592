#include "batch/job_outcome.h"

#include <algorithm>
#include <cmath>

#include "compare/figure_texts.h"
#include "compare/figures_file.h"
#include "platform/one_line.h"
#include "platform/regular_file.h"

namespace {

constexpr std::size_t kLongestReason = 300;

void Take(std::optional<GoverningValue>& governing, GoverningValue value) {
    const bool isWorse = !governing || value.utilisation > governing->utilisation;
    if (std::isfinite(value.utilisation) && isWorse) governing = std::move(value);
}

void TakeDirection(const RunRead& run, const StoryRead& story, std::size_t axis,
                   JobOutcome& outcome) {
    const DirectionRead& direction = story.directions.at(axis);
    const std::string name = axis == 0 ? "X" : run.secondDirection;
    if (direction.angle)
        Take(outcome.governing[0],
             {AngleTextOf(story, direction, kTerminalNumbers), story.number, name,
              direction.angleCode, *direction.angle / direction.angleLimit});
    if (direction.ratio)
        Take(outcome.governing[1],
             {RatioTextOf(direction, kTerminalNumbers), story.number, name, direction.ratioCode,
              // A negative ratio is worse than any other.
              *direction.ratio > 0.0 ? kCodeStiffnessRatio / *direction.ratio : 1e9});
    if (direction.modulus)
        Take(outcome.governing[2],
             {ModulusTextOf(direction, kTerminalNumbers), story.number, name, direction.modulusCode,
              *direction.modulus / kCodeEccentricityModulus});
}

// What the run said last: why it ended.
std::string LastLineOf(const std::string& path) {
    const StdioFile file = OpenRegularFile(path, ReadMode::kBytes);
    if (!file) return {};
    std::string line, last;
    for (int read = std::fgetc(file.get()); read != EOF; read = std::fgetc(file.get())) {
        if (read != '\n') {
            line += static_cast<char>(read);
            continue;
        }
        if (!line.empty()) last = line;
        line.clear();
    }
    return OneLine(line.empty() ? last : line, kLongestReason);
}

int RankOf(const JobOutcome& outcome) {
    if (outcome.end == JobEnd::kEndedEarly) return 0;
    if (outcome.code == CodeVerdict::kNg) return 1;
    return outcome.code == CodeVerdict::kUndetermined ? 2 : 3;
}

}  // namespace

double JobOutcome::Utilisation() const {
    double greatest = 0.0;
    for (const auto& value : governing)
        if (value) greatest = std::max(greatest, value->utilisation);
    return greatest;
}

JobOutcome ReadJobOutcome(const Job& job, const std::string& folder, std::string failure) {
    JobOutcome outcome;
    outcome.job = job;
    outcome.failure = std::move(failure);
    outcome.hasSheet = FileKindOf(folder + "/" + kSheetName) == FileKind::kRegular;
    try {
        const RunRead run = ReadFiguresFile(folder + "/" + kFiguresName);
        outcome.code = run.code;
        outcome.tool = run.tool;
        for (const StoryRead& story : run.stories)
            for (const std::size_t axis : {std::size_t{0}, std::size_t{1}})
                TakeDirection(run, story, axis, outcome);
        for (const RemarkRead& remark : run.remarks) {
            outcome.errors += remark.kind == "error" ? 1 : 0;
            outcome.warnings += remark.kind == "warning" ? 1 : 0;
        }
        if (run.complete && outcome.failure.empty()) outcome.end = JobEnd::kComplete;
        if (outcome.failure.empty()) outcome.failure = run.failure;
    } catch (const FiguresFileError&) {
        if (outcome.failure.empty()) outcome.failure = LastLineOf(folder + "/" + kOutputName);
    }
    return outcome;
}

bool IsWorse(const JobOutcome& one, const JobOutcome& other) {
    if (RankOf(one) != RankOf(other)) return RankOf(one) < RankOf(other);
    if (one.Utilisation() != other.Utilisation()) return one.Utilisation() > other.Utilisation();
    return one.job.line < other.job.line;
}
