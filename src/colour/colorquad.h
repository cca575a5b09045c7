// The colour library's value: three components of whatever model the colour is in, then alpha.
// Every conversion passes alpha through unchanged.
#pragma once

struct ColorQuad
{
    double c1 = 0.0;    // R, X, L* (and L* of LCh)
    double c2 = 0.0;    // G, Y, u* (C* of LCh)
    double c3 = 0.0;    // B, Z, v* (h of LCh, radians)
    double alpha = 0.0; // 0.0 to 1.0
};
