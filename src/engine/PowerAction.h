// What the user wants of the machine after a conversion.
#pragma once

#include <cstdint>

// As the Options menu counts them.
enum clAfterConversion : std::int32_t {
    afterNothing = 0,
    afterTurnOff = 1,
    afterHibernate = 2,
    afterStandBy = 3,
    afterLogOff = 4,
    afterRestart = 5,
};

using clPowerFunction = void (*)(std::int32_t action);
// What PerformPowerAction calls. Tests put their own function here: the real one ends the session.
extern clPowerFunction powerFunction;

// Does nothing, and asks for no privilege, with action 0. Not checked, no wait.
void PerformPowerAction(std::int32_t action);
