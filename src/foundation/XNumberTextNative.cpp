// The native build has no regional settings: the defaults stand.
#include "foundation/XNumberText.h"

void LoadLocaleNumbers() {
    LocaleNumbers().loaded = true;
}
