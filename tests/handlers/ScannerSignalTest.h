#pragma once

#include "tests/handlers/ScannerHandlerTest.h"

/// Adds to the tests of requests those of the signals that both scanners' handlers hear.
class ScannerSignalTest : public ScannerHandlerTest
{
    Q_OBJECT

protected:
    using ScannerHandlerTest::ScannerHandlerTest;

private Q_SLOTS:
    void tellsErrors_data();
    void tellsErrors();
    void tellsStates_data();
    void tellsStates();
    void tellsWhatWasRead_data();
    void tellsWhatWasRead();
    void tellsSignalsInTheirOrder();
    void tellsSignalsInsideARequest();
    void tellsSignalsOfAnotherThread();
    void registersTheState();
    void toldByEachHandler();
    void survivesClearingInASignal_data();
    void survivesClearingInASignal();
    void staysSilentOnceCleared();
    void hearsNothingOnceDeleted();
    void survivesAScannerThatPartsWithSignals();
};
