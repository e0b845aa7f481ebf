// What the checks tell, and which call into the plug-in is under way. The checks run in a child process
// whose end, early or late, the checker watches; both sides share one CheckState.
#pragma once

#include "foundation/XHandles.h"
#include "foundation/XString.h"

#include <utility>

inline constexpr DWORD callLimitMs = 10000;      // then a call counts as one that never returns
inline constexpr DWORD longCallLimitMs = 120000; // for whole files
inline constexpr DWORD momentMs = 1000;          // for answers about itself
inline constexpr int callUnits = 300;

// Memory that the checker and its child share; the child writes.
struct CheckState {
    volatile ULONGLONG startedMs; // GetTickCount64 of the call under way, 0 for none
    volatile DWORD limitMs;       // for that call
    volatile DWORD crashCode;     // of an exception that nothing caught
    volatile DWORD thrownCode;    // a C++ exception that was seen during the call, caught or not
    volatile LONG isFinished;     // the stage came to its end
    wchar_t call[callUnits];
};

enum class Finding : char { ok = 'o', broken = 'b', note = 'n' };

// Lines go to a pipe as one letter and the text in UTF-8.
class Report {
public:
    Report(CheckState& state, HANDLE pipe) : state(state), pipe(pipe) {}

    void Tell(Finding finding, const XString& text);
    void Ok(const XString& text) { Tell(Finding::ok, text); }
    void Broken(const XString& text) { Tell(Finding::broken, text); }
    void Note(const XString& text) { Tell(Finding::note, text); }
    bool Check(bool isKept, const XString& ok, const XString& broken) {
        Tell(isKept ? Finding::ok : Finding::broken, isKept ? ok : broken);
        return isKept;
    }
    // For rules that are asked many times: only what breaks them is told.
    bool Demand(bool isKept, const XString& broken) {
        if (!isKept)
            Broken(broken);
        return isKept;
    }

    // Runs a call into the plug-in under its name.
    template <class Work>
    auto In(const XString& name, Work work, DWORD limitMs = callLimitMs) {
        struct Scope {
            Report& report;
            ~Scope() { report.EndCall(); }
        };
        BeginCall(name, limitMs);
        const Scope scope{*this};
        return work();
    }
    DWORD lastCallMs = 0;

private:
    void BeginCall(const XString& name, DWORD limitMs);
    void EndCall();

    CheckState& state;
    HANDLE pipe;
};
