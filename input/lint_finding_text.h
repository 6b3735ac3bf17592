#pragma once

#include <string>
#include <string_view>

#include "input/input_text.h"
#include "input/lint_finding.h"
#include "platform/user_language.h"

// A finding in words. Everything is UTF-8; what the file holds is shown as it is, control
// characters excepted, so that a terminal shows it and nothing else happens.

/// "error", "warning", "note", in every language: editors look for these words.
std::string_view NameOf(LintKind kind);

/// What the finding says, with the further places where it was found.
std::string MessageOf(const LintFinding& finding, const InputText& text, Language language);

/// What to write instead, or what to do; empty when the message says it all.
std::string WriteInstead(const LintFinding& finding, Language language);

/// "tower.csv:3:24: error V01: ...", one line. Without a place: "tower.csv: error M03: ...".
std::string LineOf(const LintFinding& finding, const InputText& text, const std::string& path,
                   Language language);

/// Text of the file as one line for a terminal: tabs are blanks, controls are written out.
std::string Shown(std::string utf8);
