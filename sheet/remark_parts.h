#pragma once

#include <string>

#include "route2/remark.h"
#include "sheet/sheet_parts.h"

/// The stories and members that a remark is about; nothing when it is about none.
std::string PlacesOfRemark(const Sheet& sheet, const Remark& remark);

/// A remark with its id, its text and what to do, HTML.
std::string RemarkInFull(const Remark& remark);

/// 要修正, 要確認 or 注記.
Words WordOf(RemarkKind kind);
