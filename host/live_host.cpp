#include "host/live_host.h"

#include <objbase.h>

HostQueries* LiveHost::Connect() {
    memory_.reset();
    link_ = std::make_unique<HostLink>();
    CoInitialize(nullptr);
    if (link_->Connect() == 1) {
        memory_ = std::make_unique<RememberingHost>(*link_);
        return memory_.get();
    }
    link_->Release();
    link_.reset();
    return nullptr;
}
