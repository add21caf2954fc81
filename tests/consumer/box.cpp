// Shows one message box on the desktop, of a configuration directory that is not there, and says when it is closed.

#include "VEXMELKConfigManager.h"
#include "VEXMELKGUI.h"
#include "VEXMELKUFCurbConfig.h"

#include <iostream>

int main()
{
    VEXMELKGUI::InstallPresenter(VEXMELKGUI::GetDesktopPresenter());
    VEXMELKUFCurbConfig curb("no such folder \xE8\xA8\xAD\xE5\xAE\x9A");
    VEXMELKUFCurbConfigDefinition definition;
    const bool answered = curb.GetStandardData("S", "suv", definition) != 0;
    VEXMELKGUI::InstallPresenter(nullptr);
    std::cout << "closed" << std::endl;
    return answered ? 1 : 0;
}
