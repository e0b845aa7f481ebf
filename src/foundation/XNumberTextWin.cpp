// The user's regional settings, straight from the registry.
#include "foundation/XNumberText.h"

#include "foundation/XRegistryText.h"

void LoadLocaleNumbers() {
    XLocaleNumbers& numbers = LocaleNumbers();
    numbers.loaded = true;
    FillLocaleNumbers(numbers, [](const wchar_t* name) {
        return ReadRegistryText(HKEY_CURRENT_USER, L"Control Panel\\International", name);
    });
}
