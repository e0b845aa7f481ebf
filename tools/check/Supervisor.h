// Runs each stage in a process of its own and prints what it tells; says in which call a plug-in
// crashed, hung or ended the process.
#pragma once

#include "Checks.h"
#include "Output.h"

struct Task {
    XString plugin; // full path
    PluginKind kind = PluginKind::encoder;
    XString judge;
    XString only;         // in the names of stages; empty: all
    XStringArray samples; // full paths
};

// False if the library could not be loaded.
[[nodiscard]] bool RunStages(const Task& task, Output& output);
// The child's side: its arguments behind the switch. Never returns the ordinary way if the plug-in
// takes the process down.
int RunStageInChild(int count, wchar_t** arguments);

inline constexpr wchar_t stageSwitch[] = L"--stage"; // not for users
// The folder that holds the folder of this program.
[[nodiscard]] XString CheckedProgramFolder();
