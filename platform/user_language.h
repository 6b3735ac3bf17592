#pragma once

/// The languages in which findings are told.
enum class Language { kEnglish, kJapanese };

/// Japanese when the user's system is set to it, else English.
Language UserLanguage();
