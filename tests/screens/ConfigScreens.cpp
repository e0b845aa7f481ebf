// The configuration form with all of its controls in use.
#include "FormScreens.h"

#include "config/frmConfig.h"
#include "resources/ids.h"

void ShowConfig(const FormDriver::Step& hold) {
    WriteConfig({L"D:\\Fast drive\\Temporary files of conversions", true, 3});
    const auto check = [] {
        const HWND form = FindForm(ID_CONFIG_TEMP);
        if (!form || !IsWindowVisible(form))
            return false;
        SendMessageW(GetDlgItem(form, ID_CONFIG_OUTPUT_SET), BM_CLICK, 0, 0);
        return true;
    };
    const FormDriver driver({check, hold}, 60000);
    const frmConfig form;
}
