#pragma once

#include <string>

#include "platform/user_language.h"
#include "sheetapp/run_request.h"

/// What a person is told of a run that did not come to its end, or not with all its files. UTF-8.
struct Advice {
    std::string what;  ///< happened
    std::string todo;
};

/// Of a run that did not reach its end.
Advice AdviceOnFailure(const RunRequest& request, const RunResult& result, Language language);

/// Of a complete run: what is wrong with its files; both texts empty when nothing is.
Advice AdviceOnFiles(const RunResult& result, Language language);
