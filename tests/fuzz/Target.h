#pragma once

#include "tests/fuzz/ByteReader.h"

// What a fuzz target consists of, whether libFuzzer drives it or ReplayMain.cpp.

/// Called once, before the first input.
void fuzzInitialize();

/// Tries one input; a finding ends the program.
void fuzzOne(ByteReader *reader);

/// Lets nothing of the library's log be written. A warning that Qt gives to who uses it wrongly is a
/// finding.
void dropLog();

/// Whether the log's texts are made, which takes half of the time.
void setVerbose(bool verbose);
