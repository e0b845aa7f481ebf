// The converting form's own cost while its rows are busy.
#pragma once

// Runs a batch of 16 workers that report 20 times a second for `seconds` and prints the processor
// time that this process took, as a share of one processor.
[[nodiscard]] int BenchForm(int seconds);

// What such a worker does: started by the form in place of the real one. -1: this process is none.
[[nodiscard]] int PlayReportingWorker();
