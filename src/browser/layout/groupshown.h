// Which group the icon view really shows for the one requested: the Option key turns the
// included apps into all apps, and with bunching off every grouped list gives way to its flat twin.
#pragma once

namespace HVGroupShown {
int groupToShowConsideringModifiers(int group, bool optionKeyDown, int groupOrientation);

// Groups whose list is one flat run of apps (running, the flat twins, missing).
bool isFlatGroup(int group);
// Groups whose list is made of bunches.
bool isGroupedGroup(int group);
} // namespace HVGroupShown
