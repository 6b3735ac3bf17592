#pragma once

#include <string>

#include "input/input_text.h"

/// The text of an input file with every mistake put right for which there is one way to do so: what
/// the findings say to write is written, lines that end a block too early are taken out, the file
/// ends with FIN. For whoever wants to know what was meant; the result is not made to be kept.
InputText Repair(const InputText& text);
