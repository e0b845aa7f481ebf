// The converting form's own cost while its rows are busy.
#pragma once

// Runs a batch of 16 workers that report 20 times a second for `seconds` and prints the processor
// time that this process took, as a share of one processor.
[[nodiscard]] int BenchForm(int seconds);
