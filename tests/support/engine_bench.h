#pragma once

#include <cstdio>
#include <string>

#include "report/results_csv.h"
#include "route2/aij_code_route2.h"
#include "tests/support/fake_host.h"
#include "tests/support/test_folder.h"

/// An engine over a fake host with a log open, as after a successful Initialize: for tests that
/// run single steps.
class EngineBench {
public:
    /// `input` is the text of the Route 2 Input file.
    explicit EngineBench(FakeHost& host, const std::string& input = "FIN\n")
        : engine(&host, WriteResultRows) {
        engine.dataFilePath = folder.Write("input.csv", input);
        engine.resultFilePath = folder.Path("model.aijR2Result.csv");
        engine.logFilePath = folder.Path("log.txt");
        engine.logFile = std::fopen(engine.logFilePath.c_str(), "w");
        engine.axisAsked = true;
        engine.zIsVertical = host.zUp;
    }
    ~EngineBench() { std::fclose(engine.logFile); }
    EngineBench(const EngineBench&) = delete;
    EngineBench& operator=(const EngineBench&) = delete;

    /// Load cases, nodes and members, as a run reads them.
    void SetUpModel() {
        engine.SetLoadInfo();
        engine.SetNodeInfo();
        engine.SetMemberInfo();
    }

    /// The same, with floors and stories.
    void SetUpStories() {
        SetUpModel();
        engine.SetFloorInfo();
        engine.SetStoryInfo();
    }

    /// What the log holds so far.
    std::string Log() const {
        std::fflush(engine.logFile);
        return folder.Read("log.txt");
    }

    /// What the log has gained since the last call.
    std::string NewLog() {
        const std::string all = Log();
        const std::string added = all.substr(logRead_);
        logRead_ = all.size();
        return added;
    }

    TestFolder folder;
    AijCodeRoute2 engine;

private:
    std::size_t logRead_ = 0;
};
