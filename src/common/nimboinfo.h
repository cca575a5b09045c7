// What this build of Nimbo is: its version and the addresses it was configured with.
#pragma once

#include <QString>

namespace NimboInfo {
QString version();
QString homeUrl();
QString updateFeedUrl();
QString feedbackUrl();
} // namespace NimboInfo
