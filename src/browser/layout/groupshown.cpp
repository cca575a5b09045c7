#include "groupshown.h"

#include "catalogue/hvappgroup.h"

namespace HVGroupShown {

int groupToShowConsideringModifiers(int group, bool optionKeyDown, int groupOrientation)
{
    if (optionKeyDown) {
        if (group == HVAppGroupIncluded)
            group = HVAppGroupAll;
        else if (group == HVAppGroupIncluded1D)
            group = HVAppGroupAll1D;
    }
    if (groupOrientation == 0 && isGroupedGroup(group))
        group += 1; // each grouped list is followed by its flat twin
    return group;
}

bool isFlatGroup(int group)
{
    switch (group) {
    case HVAppGroupRunning:
    case HVAppGroupIncluded1D:
    case HVAppGroupExcluded1D:
    case HVAppGroupAll1D:
    case HVAppGroupMissing:
    case HVAppGroupUser1D:
        return true;
    default:
        return false;
    }
}

bool isGroupedGroup(int group)
{
    switch (group) {
    case HVAppGroupIncluded:
    case HVAppGroupExcluded:
    case HVAppGroupAll:
    case HVAppGroupUser:
        return true;
    default:
        return false;
    }
}

} // namespace HVGroupShown
