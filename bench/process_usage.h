#pragma once

/// Processor time this process has used so far, seconds. Unlike the time of the clock on the wall
/// it does not grow while other programs have the processor.
double ProcessorSeconds();

/// Gives memory that was freed back to the system and forgets the peak so far.
void ResetPeakMemory();

/// Most memory that the process had at one time since the last reset, MB (10^6 bytes).
double PeakMegabytes();
