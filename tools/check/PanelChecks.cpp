// The settings panel on a form of the checker's own, which stays hidden.
#include "Checks.h"
#include "Rules.h"
#include "contract/Keys.h"

#include <algorithm>
#include <vector>

namespace {

// Where Tonemill puts the panel of an encoder and what room it has, in dialog units.
constexpr int formWidth = 341, formHeight = 306, panelX = 21, panelY = 33, roomWidth = 300, roomHeight = 120;
constexpr int showings = 20;

INT_PTR CALLBACK FormProcedure(HWND, UINT message, WPARAM, LPARAM) noexcept {
    return message == WM_INITDIALOG;
}

class Form {
public:
    Form() {
        constexpr DWORD style = WS_POPUP | WS_CAPTION | DS_SETFONT;
        // DIALOGEX: version, signature, help, extended style, style, no controls, place, no menu, class,
        // title
        std::vector<WORD> bytes = {
            1,         0xFFFF,     0, 0, 0, 0, LOWORD(style), HIWORD(style),       0, 20, 20,
            formWidth, formHeight, 0, 0, 0, 8, FW_NORMAL,     DEFAULT_CHARSET << 8};
        for (const wchar_t* at = L"MS Shell Dlg"; *at; ++at)
            bytes.push_back(*at);
        bytes.push_back(0);
        window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                            reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), nullptr,
                                            FormProcedure, 0);
        place = {panelX, panelY, panelX + roomWidth, panelY + roomHeight};
        MapDialogRect(window, &place);
    }
    ~Form() { Close(); }
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    void Close() {
        if (window)
            DestroyWindow(window);
        window = nullptr;
    }
    [[nodiscard]] std::vector<HWND> Children() const {
        std::vector<HWND> children;
        for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            children.push_back(child);
        return children;
    }

    HWND window = nullptr;
    RECT place{}; // of the panel, in pixels of the client area
};

std::vector<HWND> OwnWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) -> BOOL {
            if (IsWindowVisible(window))
                reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

void DispatchWaiting() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageW(&message);
}

class Panel {
public:
    explicit Panel(Checked& checked)
        : checked(checked), show(checked.library.Name(L"ShowConfigBit")),
          remove(checked.library.Name(L"RemoveConfigBit")) {}

    void Show(Instance& instance, const wchar_t* settings) {
        checked.report.In(show, [&] {
            checked.library.showPanel(instance.value, form.window, form.place.left, form.place.top, settings);
        });
        DispatchWaiting();
    }
    const wchar_t* RemoveRaw(Instance& instance, void* parent) {
        const wchar_t* text =
            checked.report.In(parent == ztKeepPanel ? remove + L" that keeps the panel" : remove,
                              [&] { return checked.library.removePanel(instance.value, parent); });
        return text;
    }
    XString Remove(Instance& instance, void* parent) {
        const XString text = TakeText(checked, remove, RemoveRaw(instance, parent), true);
        DispatchWaiting();
        return text;
    }

    Checked& checked;
    Form form;
    XString show, remove;
};

void CheckPlace(Panel& panel, const std::vector<HWND>& children) {
    RECT whole{};
    for (const HWND child : children) {
        RECT area{};
        GetWindowRect(child, &area);
        MapWindowPoints(nullptr, panel.form.window, reinterpret_cast<POINT*>(&area), 2);
        const RECT before = whole;
        UnionRect(&whole, &before, &area);
        panel.checked.report.Demand((GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) != 0,
                                    panel.show + L" made a window that is not shown (WS_VISIBLE)");
    }
    const RECT& place = panel.form.place;
    const auto text = [](LONG a, LONG b) { return DecimalText(a) + L", " + DecimalText(b); };
    panel.checked.report.Check(whole.left == place.left && whole.top == place.top,
                               L"the panel stands at the point that it was given",
                               panel.show + L" was told the point " + text(place.left, place.top) +
                                   L" and put the panel at " + text(whole.left, whole.top));
    const XString room = text(whole.right - whole.left, whole.bottom - whole.top);
    const XString most = text(place.right - place.left, place.bottom - place.top);
    panel.checked.report.Check(whole.right > whole.left && whole.bottom > whole.top &&
                                   whole.right <= place.right && whole.bottom <= place.bottom,
                               XString(L"the panel's size is ") + room + L" pixels, in a room of " + most,
                               XString(L"the panel's size is ") + room +
                                   L" pixels, and the form has a room of " + most +
                                   L" (300 by 120 dialog units): other controls would be covered");
}

// A text that the panel gave, where it will have to stand.
void CheckSettings(Checked& checked, const XString& subject, const XString& text) {
    const bool isEncoder = checked.library.kind == PluginKind::encoder;
    const XString fault = isEncoder ? EncoderSettingsFault(text) : EffectSettingsFault(text);
    checked.report.Check(fault.IsEmpty(),
                         subject + L" returned settings that a command can hold: " +
                             (text.IsEmpty() ? XString(L"none") : text),
                         subject + L" returned a text that " + fault);
    if (!isEncoder)
        return;
    Instance instance(checked);
    PluginParams params{};
    params.text1 = text;
    if (instance.Ask(ZtKey::checkSettings, params) == 0 && params.text2)
        checked.report.Broken(subject + L" returned settings that \"Check Settings\" refuses: " +
                              params.text2);
}

// Settings that differ, so that the panels differ; most plug-ins give back what they don't know.
void CheckTwoPanels(Panel& first) {
    Panel second(first.checked);
    Instance a(first.checked), b(first.checked);
    first.Show(a, L"-first=\"1\"");
    second.Show(b, L"-second=\"2\"");
    const wchar_t* text = first.RemoveRaw(a, first.form.window);
    const XString copy = TakeText(first.checked, first.remove, text, true);
    static_cast<void>(second.Remove(b, second.form.window));
    first.checked.report.Check(!text || IsStill(text, copy), L"two panels at a time keep apart",
                               first.remove +
                                   L" of one instance changed the text that another one had returned: "
                                   L"keep it in the instance");
}

// Null and wrong settings, an early Destroy, a form that goes first.
void CheckOddEnds(Panel& panel) {
    Checked& checked = panel.checked;
    {
        Instance instance(checked);
        static_cast<void>(panel.Remove(instance, panel.form.window)); // without a panel
        for (const wchar_t* settings :
             {L"-no_such_option=\"1\" word", L"\"\"\" = - --", static_cast<const wchar_t*>(nullptr)}) {
            panel.Show(instance, settings);
            const XString first = panel.Remove(instance, panel.form.window);
            panel.Show(instance, first);
            const XString second = panel.Remove(instance, panel.form.window);
            checked.report.Demand(first == second, panel.show + L" was given \"" + first +
                                                       L"\", which came from it, and " + panel.remove +
                                                       L" returned \"" + second + L"\"");
        }
        checked.report.Demand(panel.form.Children().empty(), panel.remove + L" left a window on the form");
    }
    {
        Instance instance(checked);
        panel.Show(instance, L"");
        instance.Destroy();
        checked.report.Check(panel.form.Children().empty(), L"an instance that goes takes its panel with it",
                             checked.library.Name(L"Destroy") +
                                 L" left the panel's window on the form: its code will be unloaded");
    }
    Panel early(checked);
    Instance instance(checked);
    early.Show(instance, L"");
    const HWND gone = early.form.window;
    early.form.Close();
    static_cast<void>(early.Remove(instance, gone));
    checked.report.Ok(L"a form that goes before its panel does no harm");
}

// Where the system does not count objects, the slots that new ones get tell: free ones come before new ones.
DWORD DrawingObjects() {
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (count != 0)
        return count;
    HPEN pens[500];
    DWORD highest = 0;
    for (HPEN& pen : pens) {
        pen = CreatePen(PS_SOLID, 1, 0);
        highest = std::max(highest, static_cast<DWORD>(LOWORD(reinterpret_cast<ULONG_PTR>(pen))));
    }
    for (const HPEN pen : pens)
        DeleteObject(pen);
    return highest;
}

// The same of windows and menus, whose slots all processes share: there the menus are tried one by one by
// the low word of their handles, and the windows of the thread enumerated.
DWORD UserObjects() {
    DWORD count = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    if (count != 0)
        return count;
    for (ULONG_PTR slot = 0; slot < 0x10000; slot += 2)
        count += IsMenu(reinterpret_cast<HMENU>(slot)) ? 1 : 0;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND, LPARAM data) -> BOOL {
            ++*reinterpret_cast<DWORD*>(data);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

void CheckLeaks(Panel& panel) {
    const auto showOften = [&](int count) {
        for (int i = 0; i < count; ++i) {
            Instance instance(panel.checked);
            panel.Show(instance, L"");
            static_cast<void>(panel.Remove(instance, panel.form.window));
        }
    };
    showOften(3); // classes, fonts and what else stays for good
    const DWORD drawing = DrawingObjects(), user = UserObjects();
    showOften(showings);
    const DWORD drawingAfter = DrawingObjects(), userAfter = UserObjects();
    const auto leaks = [](DWORD before, DWORD after) { return after > before + showings / 2; };
    const XString times = XString(L" after ") + DecimalText(showings) + L" showings of the panel";
    panel.checked.report.Check(!leaks(drawing, drawingAfter), XString(L"no GDI objects are left") + times,
                               DecimalText(static_cast<std::int64_t>(drawingAfter) - drawing) +
                                   L" GDI objects (fonts, brushes, bitmaps) are left" + times);
    panel.checked.report.Check(!leaks(user, userAfter), XString(L"no windows or menus are left") + times,
                               DecimalText(static_cast<std::int64_t>(userAfter) - user) +
                                   L" windows, menus or icons are left" + times);
}

} // namespace

void CheckPanel(Checked& checked) {
    Panel panel(checked);
    Instance instance(checked);
    if (!instance.value)
        return;
    const std::size_t windowsBefore = OwnWindows().size();
    panel.Show(instance, L"");
    const std::vector<HWND> children = panel.form.Children();
    checked.report.Demand(OwnWindows().size() <= windowsBefore,
                          panel.show + L" opened a window of its own; a panel is a child of the form");
    const XString live = panel.Remove(instance, ztKeepPanel);
    const bool isKept = panel.form.Children().size() == children.size();
    if (children.empty()) {
        checked.report.Note(L"there is no panel: the user can't choose settings");
    } else {
        CheckPlace(panel, children);
        checked.report.Check(isKept, L"ztKeepPanel gives the settings and keeps the panel",
                             panel.remove + L" with ztKeepPanel took the panel away");
    }
    CheckSettings(checked, panel.remove, live);
    const XString last = panel.Remove(instance, panel.form.window);
    checked.report.Demand(last == live, panel.remove + L" returned \"" + last +
                                            L"\" when it removed the panel and \"" + live +
                                            L"\" just before, with ztKeepPanel");
    checked.report.Check(panel.form.Children().empty(), L"no window is left when the panel is removed",
                         panel.remove + L" left a window on the form");
    panel.Show(instance, last);
    const XString again = panel.Remove(instance, panel.form.window);
    checked.report.Check(again == last, L"settings come back from the panel as they went in",
                         panel.show + L" was given \"" + last + L"\", and " + panel.remove + L" returned \"" +
                             again + L"\": each opening of the form would change them");
    CheckTwoPanels(panel);
    CheckOddEnds(panel);
    CheckLeaks(panel);
}
