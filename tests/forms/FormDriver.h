// Drives a modal form from inside its own message loop: steps on a timer, each polled until it is
// done or the time is over.
#pragma once

#include "../toolkit/Place.h"
#include "foundation/XString.h"

#include <windows.h>

#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

// Settings of the tests' own, empty at the start and gone at the end.
class TestSettings {
public:
    TestSettings();
    ~TestSettings();
};

// Is called every few milliseconds until it answers true; what answers nothing is done by one call.
class FormStep {
public:
    template <class Action>
    requires(!std::is_same_v<Action, FormStep>) FormStep(Action action) {
        if constexpr (std::is_void_v<std::invoke_result_t<Action&>>)
            run = [action]() mutable { return action(), true; };
        else
            run = std::move(action);
    }
    bool operator()() const { return run(); }

private:
    std::function<bool()> run;
};

class FormDriver {
public:
    using Step = FormStep;
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
[[nodiscard]] HWND FindBox(const XString& text); // the message box with exactly that text
[[nodiscard]] HWND FindBoxOf(HWND form);         // any message box that the form owns
[[nodiscard]] XString TextOf(HWND window);
[[nodiscard]] XString TextOf(HWND form, int controlId);
[[nodiscard]] bool IsMenuOpen(); // a popup menu of this thread, to be seen

// Steps
[[nodiscard]] FormDriver::Step AnswerBox(const XString& text, int button); // a message box with that text
[[nodiscard]] FormDriver::Step PressKey(WPARAM key);                       // for the window with the focus
// Opens the control's context menu by a key and takes the command number `downs`, if it is enabled.
void AskMenu(std::vector<FormDriver::Step>& steps, const std::function<HWND()>& control, int downs);

void SendWithControl(HWND window, WPARAM key); // while Ctrl is down

// Sizes the form and counts its visible controls. Fails the test if one reaches out of the form or
// over another; `except` is passed over.
std::size_t CountPlacedControls(HWND form, int width, int height, HWND except = nullptr);
