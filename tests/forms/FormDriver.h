// Drives a modal form from inside its own message loop: steps on a timer, each polled until it is
// done or the time is over.
#pragma once

#include "foundation/XString.h"

#include <windows.h>

#include <functional>
#include <vector>

// Settings of the tests' own, empty at the start and gone at the end.
class TestSettings {
public:
    TestSettings();
    ~TestSettings();
};

class FormDriver {
public:
    // A step is called every few milliseconds until it answers true.
    using Step = std::function<bool()>;
    explicit FormDriver(std::vector<Step> steps, DWORD limitMs = 20000);
    ~FormDriver();
    FormDriver(const FormDriver&) = delete;
    FormDriver& operator=(const FormDriver&) = delete;

    [[nodiscard]] bool IsDone() const { return next == steps.size(); }
    [[nodiscard]] std::size_t StepsDone() const { return next; }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    void TryStep();
    void GiveUp();

    std::vector<Step> steps;
    std::size_t next = 0;
    DWORD start;
    DWORD limitMs;
    UINT_PTR timer;
    bool isInStep = false;
};

// Top-level windows of this thread. Null if there is none.
[[nodiscard]] HWND FindForm(int controlId);      // the dialog that has such a control
[[nodiscard]] HWND FindBox(const wchar_t* text); // the message box with exactly that text
[[nodiscard]] HWND FindBoxOf(HWND form);         // any message box that the form owns
[[nodiscard]] XString TextOf(HWND window);
// Sizes the form and counts its visible controls. Fails the test if one reaches out of the form or
// over another; `except` is passed over.
std::size_t CountPlacedControls(HWND form, int width, int height, HWND except = nullptr);
[[nodiscard]] XString TextOf(HWND form, int controlId);
