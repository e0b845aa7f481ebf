// What a command asks of the process itself: processor, priority, temporary folder. Windows only.
#pragma once

#include "worker/CommandText.h"
#include "worker/Reporter.h"

// To be called on the thread that will convert. What the machine lacks is passed over.
void ApplyProcessSettings(const clWorkerCommand& command, Reporter& reporter);
