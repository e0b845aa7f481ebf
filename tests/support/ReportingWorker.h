// A worker that only reports: what keeps the rows of the converting form busy in measurements and
// pictures. A program that wants it calls PlayReportingWorker first in its main and starts itself.
#pragma once

#include "engine/Conversion.h"
#include "forms/converting/frmConverting.h"

// -1: this process was not started as a worker. Otherwise its exit code, when it has reported for as
// long as was told. The percent begins at the number that the source's name ends in.
[[nodiscard]] int PlayReportingWorker();

// Sets up a batch of such workers, `slots` at once, in the settings that are the current ones: `count`
// files that do not exist, their numbers `numberStep` apart.
[[nodiscard]] clConvertingSeams PrepareReportingBatch(clFileList& files, int count, int slots, int numberStep,
                                                      int seconds);
