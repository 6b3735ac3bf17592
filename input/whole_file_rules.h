#pragma once

#include <string_view>

#include "input/input_text.h"
#include "input/lint_finding.h"

struct InputView;

/// What kind of file it is: F06, F08, F15. True when nothing else can be said about it.
bool CheckKindOfFile(const InputText& text, LintFindingList& findings);

/// The end of the data, the number of lines, the byte-order mark, unreadable characters.
void CheckWholeFile(const InputView& view, LintFindingList& findings);
