#pragma once

#include <string>

#include "platform/user_language.h"

/// What the window says, by itself.
enum class WindowText {
    kTitle,
    kInputLabel,
    kNoInput,
    kChoose,
    kOpenInput,
    kRunAnyway,
    kOpenSheet,
    kOpenResults,
    kOpenLog,
    kAgain,
    kCheckAgain,
    kCancel,
    kClose,
    kDropHere,
    kChecking,
    kInputHasErrors,
    kInputNotRead,
    kInputOnRecording,
    kRunning,
    kRunningRecording,
    kHostIsBusy,
    kCancelling,
    kWaitingToClose,
    kRecordingNeedsInput,
    kAnswers,
    kInputFindings,
    kFileIsGone,
    kNoProgramOpens,
    kNotInputOrRecording,
    kOneFileOfAKind,
    kRemarks,
};

/// The text in UTF-8. Buttons have their mnemonic behind an ampersand.
std::string TextOf(WindowText text, Language language);
