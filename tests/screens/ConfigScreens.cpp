// The configuration form with all of its controls in use.
#include "FormScreens.h"

#include "config/frmConfig.h"
#include "resources/ids.h"

void ShowConfig() {
    WriteConfig({L"D:\\Fast drive\\Temporary files of conversions", true, 3});
    const FormDriver driver = HoldAfter({[] {
        const HWND form = FindForm(ID_CONFIG_TEMP);
        if (!form || !IsWindowVisible(form))
            return false;
        SendMessageW(GetDlgItem(form, ID_CONFIG_OUTPUT_SET), BM_CLICK, 0, 0);
        return true;
    }});
    const frmConfig form;
}
