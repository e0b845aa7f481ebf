// A worker that only reports: what keeps the rows of the converting form busy in measurements and
// pictures. A program that wants it calls PlayReportingWorker first in its main and starts itself.
#pragma once

#include "engine/Conversion.h"
#include "forms/converting/frmConverting.h"

// -1: this process was not started as a worker. Otherwise its exit code, when it has reported for as
// long as was told. The percent begins at the number that the source's name ends in.
[[nodiscard]] int PlayReportingWorker();

struct clReportingBatch {
    int files = 1, slots = 1;
    int numberStep = 1; // from the number of one file to that of the next
    int seconds = 1;    // that each worker reports for
    const wchar_t* codec = L"NoSuchEncoder";
    const wchar_t* effect = nullptr; // one more in the chain
};

// Sets up such a batch in the settings that are the current ones, of files that do not exist.
[[nodiscard]] clConvertingSeams PrepareReportingBatch(clFileList& files, const clReportingBatch& batch);
