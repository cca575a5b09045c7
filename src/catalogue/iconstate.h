// What the catalogue keeps for loading icons.
#pragma once

struct HVIconState
{
};
