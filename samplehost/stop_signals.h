#pragma once

/// Lets Ctrl+C, the closing of the console, the end of the session and the Enter key end this
/// SampleHost through its StopWindow, which must exist.
void ListenForStopSignals();

/// Ends the SampleHost that runs in this session and waits until it has ended. False when none is
/// running, or when it does not end within ten seconds.
bool StopRunningSampleHost();
