// Commands, stored settings and check marks of the Options menu.
#include "forms/converting/OptionsMenu.h"

#include "engine/Records.h"
#include "host/Settings.h"
#include "resources/ids.h"

#include <iterator>

namespace {

struct MenuChoice {
    int id;
    std::int32_t value;
};
constexpr MenuChoice priorities[] = {
    {ID_PRIORITY_ABOVE, priorityAboveNormal},
    {ID_PRIORITY_NORMAL, priorityNormal},
    {ID_PRIORITY_BELOW, priorityBelowNormal},
    {ID_PRIORITY_IDLE, priorityIdle},
};
constexpr MenuChoice actions[] = {
    {ID_AFTER_NOTHING, afterNothing},     {ID_AFTER_TURN_OFF, afterTurnOff},
    {ID_AFTER_HIBERNATE, afterHibernate}, {ID_AFTER_STAND_BY, afterStandBy},
    {ID_AFTER_LOG_OFF, afterLogOff},      {ID_AFTER_RESTART, afterRestart},
};

template <std::size_t n>
const MenuChoice* FindChoice(const MenuChoice (&choices)[n], int id) {
    for (const MenuChoice& choice : choices)
        if (choice.id == id)
            return &choice;
    return nullptr;
}

} // namespace

void clOptionsMenu::Load() {
    priority = RegReadDword(Setting::priority);
    skipFinished = RegReadDword(Setting::skippedFinish) != 0;
    showErrorLog = RegReadDword(Setting::noDisplayError) == 0;
    showInformationLog = RegReadDword(Setting::displayInfo) != 0;
    if (menu.Load(ID_MENU_CONVERTING))
        UpdateChecks();
}

void clOptionsMenu::EnableLogs() {
    if (!areLogsEnabled)
        menu.EnableItem(ID_VIEW_LOGS, true);
    areLogsEnabled = true;
}

bool clOptionsMenu::Command(int id) {
    if (const MenuChoice* choice = FindChoice(priorities, id)) {
        priority = static_cast<std::uint32_t>(choice->value);
        RegWriteDword(priority, Setting::priority);
    } else if (const MenuChoice* action = FindChoice(actions, id)) {
        afterConversion = action->value;
    } else if (id == ID_SHOW_ERROR_LOG) {
        showErrorLog = !showErrorLog;
        RegWriteDword(!showErrorLog, Setting::noDisplayError);
    } else if (id == ID_SHOW_INFORMATION_LOG) {
        showInformationLog = !showInformationLog;
        RegWriteDword(showInformationLog, Setting::displayInfo);
    } else if (id == ID_SKIP_FINISHED) {
        skipFinished = !skipFinished;
        RegWriteDword(skipFinished, Setting::skippedFinish);
    } else {
        return false;
    }
    UpdateChecks();
    return true;
}

void clOptionsMenu::UpdateChecks() {
    const auto check = [this](int id, bool on) { menu.CheckItem(static_cast<UINT>(id), on); };
    for (const MenuChoice& choice : priorities)
        check(choice.id, choice.value == static_cast<std::int32_t>(priority));
    for (const MenuChoice& choice : actions)
        check(choice.id, choice.value == afterConversion);
    check(ID_SHOW_ERROR_LOG, showErrorLog);
    check(ID_SHOW_INFORMATION_LOG, showInformationLog);
    check(ID_SKIP_FINISHED, skipFinished);
}
