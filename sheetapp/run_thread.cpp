#include "sheetapp/run_thread.h"

#include <future>
#include <thread>
#include <utility>

#include "host/live_host.h"
#include "sheetapp/sheet_run.h"

namespace {

constexpr UINT kStart = WM_APP;

}  // namespace

struct RunThread::Shared {
    RunProgress progress;
    RunRequest request;
    RunResult result;
    HWND window = nullptr;
    UINT endedMessage = 0;

    void Run(LiveHost& live) {
        result = RunAndWriteSheet(
            request, [&live] { return live.Connect(); }, progress);
        live.ForgetAnswers();
        PostMessageW(window, endedMessage, 0, 0);
    }

    // COM wants the messages of a thread that has called it to be taken, also between runs.
    void Serve(std::promise<DWORD> ready) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // makes the queue
        ready.set_value(GetCurrentThreadId());
        LiveHost live({.questions = [this](const QuestionProgress& now) { progress.Answered(now); },
                       .busy = [this] { return progress.RejectedByHost(); }});
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (message.hwnd == nullptr && message.message == kStart)
                Run(live);
            else
                DispatchMessageW(&message);
        }
    }
};

RunThread::RunThread() : shared_(std::make_shared<Shared>()) {
    std::promise<DWORD> ready;
    std::future<DWORD> threadId = ready.get_future();
    std::thread([shared = shared_, ready = std::move(ready)]() mutable {
        shared->Serve(std::move(ready));
    }).detach();
    threadId_ = threadId.get();
}

RunThread::~RunThread() {
    PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
}

void RunThread::Start(const RunRequest& request, HWND window, UINT endedMessage) {
    shared_->request = request;
    shared_->window = window;
    shared_->endedMessage = endedMessage;
    shared_->progress.Begin();
    PostThreadMessageW(threadId_, kStart, 0, 0);
}

RunProgress& RunThread::Progress() {
    return shared_->progress;
}

RunResult RunThread::TakeResult() {
    return std::exchange(shared_->result, {});
}
