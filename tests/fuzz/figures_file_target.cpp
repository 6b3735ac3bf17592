// The reader of figures that `compare` has. A file is refused with one line that names it, or read;
// what was read is the same as itself, and can be told and drawn beside a sound run.

#include <string>
#include <string_view>

#include "compare/change_text.h"
#include "compare/comparison_page.h"
#include "compare/figures_file.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/test_folder.h"

namespace {

constexpr std::size_t kLongestMessage = 2000;

void CheckMessage(const std::string& message, const std::string& path) {
    Check(message.starts_with(path + ": "), "the message names the file");
    Check(message.size() < path.size() + kLongestMessage, "the message is short");
    for (const char c : message)
        Check(static_cast<unsigned char>(c) >= 0x20, "the message is one line of plain text");
}

// Lines of text alone, whatever stood in the file.
void CheckText(const std::string& text) {
    for (const char c : text)
        Check(c == '\n' || static_cast<unsigned char>(c) >= 0x20,
              "the text is lines of plain text");
}

RunRead SoundRun() {
    RunRead run;
    run.secondDirection = "Y";
    StoryRead story;
    story.number = 1;
    story.upperLevel = 3000;
    story.height = 3000;
    story.gravityCenter = {0.0, 0.0};
    run.stories = {story};
    return run;
}

void CheckRun(const RunRead& run) {
    const Comparison same = CompareRuns(run, run, 0.0);
    Check(!same.AnyVerdictChanged(), "a run has the verdicts that it has");
    CheckText(ChangeText(run, run, same, false));
    const RunRead sound = SoundRun();
    for (const auto& [a, b] : {std::pair(&run, &sound), std::pair(&sound, &run)}) {
        const Comparison comparison = CompareRuns(*a, *b, 0.001);
        CheckText(ChangeText(*a, *b, comparison, true));
        const std::string page = ComparisonPage(*a, *b, comparison);
        Check(page.find("<script") == std::string::npos, "no markup comes from outside");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestFolder folder;
    const std::string path =
        folder.Write("f.json", std::string(reinterpret_cast<const char*>(data), size));
    try {
        CheckRun(ReadFiguresFile(path));
    } catch (const FiguresFileError& error) {
        CheckMessage(error.what(), path);
    }
    return 0;
}
