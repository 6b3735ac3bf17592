// The reader of host model files. A file is refused with one line that names it, or read whole;
// what was read is written and asked about everything, and read back the same.

#include <string>
#include <string_view>

#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "host/remembering_host.h"
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

// Asks for six values. A recording refuses what it was not asked, and a member what cannot be told
// along its axes.
template <typename Ask>
void AskForSix(const Ask& ask) {
    try {
        ask();
    } catch (const HostCallError& error) {
        CheckMessage(std::string("host: ") + error.what(), "host");
    }
}

// Every question about everything in the lists, end forces of both ends.
void AskEverything(HostQueries& host, const RecordedModel& model) {
    SixIntegers codes{};
    SixDoubles six{};
    host.GetBaseUnitSystem();
    host.IsZUp();
    host.AreResultsAvailable();
    std::vector<std::int32_t> loadCases(static_cast<std::size_t>(host.GetPrimaryLoadCaseCount()));
    host.GetPrimaryLoadCaseNumbers(loadCases);
    std::vector<std::int32_t> combinations(
        static_cast<std::size_t>(host.GetLoadCombinationCount()));
    host.GetLoadCombinationNumbers(combinations);
    loadCases.insert(loadCases.end(), combinations.begin(), combinations.end());

    std::vector<std::int32_t> nodes(static_cast<std::size_t>(host.GetNodeCount()));
    host.GetNodeList(nodes);
    for (const std::int32_t node : nodes) {
        double x = 0.0, y = 0.0, z = 0.0;
        host.GetNodeCoordinates(node, x, y, z);
        host.GetSupportInfo(node, codes, six);
        for (const std::int32_t loadCase : loadCases)
            AskForSix([&] { host.GetNodeDisplacements(node, loadCase, six); });
    }
    std::vector<std::int32_t> members(static_cast<std::size_t>(host.GetMemberCount()));
    host.GetMemberList(members);
    for (const RecordedMember& member : model.members) {
        std::int32_t start = 0, end = 0;
        host.GetMemberIncidence(member.number, start, end);
        host.GetMemberRotationAngle(member.number);
        for (const std::int32_t loadCase : loadCases)
            for (const std::int32_t memberEnd : {0, 1})
                AskForSix(
                    [&] { host.GetMemberEndForces(member.number, memberEnd, loadCase, six); });
    }
}

// A model that was read can be written, and says the same when it is read back.
void CheckCopies(const RecordedModel& model, const TestFolder& folder) {
    const std::string copy = folder.Path("copy.qhm");
    WriteQhmFile(model, copy);
    const std::string text = ReadText(copy);
    const QhmContents copied = ReadQhmFileWithCautions(copy);
    Check(copied.cautions.empty(), "what is written has no unknown key");
    WriteQhmFile(copied.model, copy);
    CheckSameText(text, ReadText(copy), "a model read back says the same");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestFolder folder;
    const std::string path =
        folder.Write("model.qhm", std::string(reinterpret_cast<const char*>(data), size));
    QhmContents contents;
    try {
        contents = ReadQhmFileWithCautions(path);
    } catch (const QhmFileError& error) {
        CheckMessage(error.what(), path);
        return 0;
    }
    for (const std::string& caution : contents.cautions)
        CheckMessage(path + ": " + caution, path);
    CheckCopies(contents.model, folder);

    RecordedHost host(contents.model, path);
    RememberingHost remembering(host);
    AskEverything(remembering, contents.model);
    CheckCopies(remembering.Memory(), folder);
    return 0;
}
