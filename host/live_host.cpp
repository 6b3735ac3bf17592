#include "host/live_host.h"

#include <objbase.h>

#include <utility>

LiveHost::LiveHost(LiveHostWatch watch) : watch_(std::move(watch)) {}

LiveHost::~LiveHost() {
    // Left to the end of the process: a host that does not answer must not hold it up.
    for (std::unique_ptr<HostLink>& link : links_)
        static_cast<void>(link.release());
}

HostQueries* LiveHost::Connect() {
    ForgetAnswers();
    links_.push_back(std::make_unique<HostLink>());
    HostLink& link = *links_.back();
    // Every run asks again; only the first one changes anything. The thread's COM stays.
    static_cast<void>(CoInitialize(nullptr));
    if (!filter_) filter_ = std::make_unique<RegisteredBusyHostFilter>(watch_.busy);
    if (link.Connect() == 0) {
        link.Release();
        links_.pop_back();
        return nullptr;
    }
    HostQueries* asked = &link;
    if (watch_.questions) {
        counting_ = std::make_unique<CountingHost>(link, watch_.questions);
        asked = counting_.get();
    }
    memory_ = std::make_unique<RememberingHost>(*asked);
    return memory_.get();
}

void LiveHost::ForgetAnswers() {
    memory_.reset();
    counting_.reset();
}
