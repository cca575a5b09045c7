// The lists the catalogue serves and the icon view shows, by number.
#pragma once

#include <QtGlobal>

enum HVAppGroup : int {
    HVAppGroupNone = -1,
    HVAppGroupRunning = 0,
    HVAppGroupIncluded = 1,
    HVAppGroupIncluded1D = 2,
    HVAppGroupExcluded = 3,
    HVAppGroupExcluded1D = 4,
    HVAppGroupAll = 5,
    HVAppGroupAll1D = 6,
    HVAppGroupMissing = 7,
    HVAppGroupUser = 8,
    HVAppGroupUser1D = 9,
};

// Only the user's own lists are edited by moving.
inline bool isUserGroup(int group)
{
    return (group & ~1) == HVAppGroupUser;
}

// An index that means "past the end" of a bunch.
inline constexpr qint64 HVIndexPastEnd = 2147483647;
