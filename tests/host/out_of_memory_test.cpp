// Reading and writing model files while memory runs out, at every single place where it can: a
// program of its own, because it takes the place of the operator that allocates.

#include <gtest/gtest.h>

#include <new>

#include "host/qhm_file.h"
#include "tests/support/failing_allocations.h"
#include "tests/support/test_folder.h"

namespace {

constexpr const char* kModel = R"({"format": "quarnel-host-model", "version": 2,
    "modelPath": "D:\\jobs\\a name too long to be kept without an allocation.ext",
    "recordedFor": {"input": "a name too long to be kept without an allocation.csv", "sha256":
        "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
    "remark, a long one too": {"a": [{"b": 1}, "c\u0041"], "d": null},
    "displacements": {"1": {"2": [1, 2, 3, 4, 5, 6], "77": [1, 2, 3, 4, 5, 6]}},
    "nodes": [{"number": 1, "xyz": [0, 0, 0], "support": true}, {"number": 2, "xyz": [0, 0, 3]}],
    "members": [{"number": 1, "start": 1, "end": 2}, {"number": 2, "start": 2, "end": 1}],
    "unlistedMembers": [{"number": 9, "start": 1, "end": 2, "beta": 90}],
    "primaryLoadCases": [1, 2], "loadCombinations": [101],
    "endForces": {"1": {"2": [[1, 2, 3, 4, 5, 6], [1, 2, 3, 4, 5, 6]]}},
    "endForcesGlobal": {"1": {"1": [[1, 2, 3, 4, 5, 6], [1, 2, 3, 4, 5, 6]],
                              "9": [[1, 2, 3, 4, 5, 6], [1, 2, 3, 4, 5, 6]]}}})";

/// Lets the first allocation of `act` fail, then the second, and so on until it succeeds. Gives
/// how often it failed, each time by std::bad_alloc.
template <typename Act>
long TimesOutOfMemory(const Act& act) {
    for (long succeeding = 0;; ++succeeding) {
        LetAllocationsSucceed(succeeding);
        try {
            act();
            LetAllocationsSucceed(kAllAllocations);
            return succeeding;
        } catch (const std::bad_alloc&) {
            LetAllocationsSucceed(kAllAllocations);
        }
    }
}

}  // namespace

TEST(OutOfMemory, EndsTheReadingOfAModelFileWithAnExceptionWhereverItComes) {
    const TestFolder folder;
    const std::string path = folder.Write("tower.qhm", kModel);
    std::size_t members = 0;
    const long times = TimesOutOfMemory([&] { members = ReadQhmFile(path).members.size(); });
    EXPECT_EQ(3u, members);
    EXPECT_LT(50, times);
}

TEST(OutOfMemory, EndsTheReadingOfAFaultyFileWithOneOfBoth) {
    const TestFolder folder;
    for (const char* text : {R"({"format": "quarnel-host-model", "version": 1, "nodes": [5]})",
                             R"({"format": "quarnel-host-model", "version": 1, x})"}) {
        const std::string path = folder.Write("tower.qhm", text);
        std::string error;
        TimesOutOfMemory([&] {
            try {
                ReadQhmFile(path);
            } catch (const QhmFileError& fault) {
                error = fault.what();
            }
        });
        EXPECT_EQ(0u, error.find(path + ": ")) << error;
    }
}

TEST(OutOfMemory, WhileWritingLeavesTheOlderFileAndNothingBeside) {
    const TestFolder folder;
    const RecordedModel model = ReadQhmFile(folder.Write("read.qhm", kModel));
    const std::string path = folder.Write("tower.qhm", "earlier\n");
    const long times = TimesOutOfMemory([&] {
        try {
            WriteQhmFile(model, path);
        } catch (const std::bad_alloc&) {
            LetAllocationsSucceed(kAllAllocations);
            EXPECT_EQ("earlier\n", folder.Read("tower.qhm"));
            EXPECT_FALSE(folder.Has("tower.qhm.part"));
            throw;
        }
    });
    EXPECT_LT(10, times);
    EXPECT_EQ(3u, ReadQhmFile(path).members.size());
}
