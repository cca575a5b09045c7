// Nimbo started as its main() starts it, for tests that drive the running panel: the welcome
// tour stays closed so that nothing covers the panel.
#pragma once

#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"

#include <memory>

inline std::unique_ptr<HVController> startNimbo(HVUserDefaults* defaults)
{
    defaults->setBool(false, "showWelcomeWindow");
    auto controller = std::make_unique<HVController>(defaults);
    controller->awakeFromNib();
    controller->applicationWillFinishLaunching();
    controller->applicationDidFinishLaunching();
    return controller;
}
