// The names of the notifications Nimbo posts on its notification centre.
#pragma once

#include <QString>

namespace HVNotificationNames {
inline const QString ShowProgressStep = QStringLiteral("N_ShowProgressStep");
inline const QString AppIconChanged = QStringLiteral("N_AppIconChanged");
inline const QString AppIsMissing = QStringLiteral("N_AppIsMissing");
inline const QString ScanPathListChanged = QStringLiteral("N_ScanPathListChanged");
inline const QString SubviewNeedsResizing = QStringLiteral("N_SubviewNeedsResizing");
inline const QString SelectedAppChanged = QStringLiteral("N_SelectedAppChanged");
inline const QString FilterStringChanged = QStringLiteral("N_FilterStringChanged");
inline const QString SelectNextIconGroup = QStringLiteral("N_SelectNextIconGroup");
inline const QString SelectPrevIconGroup = QStringLiteral("N_SelectPrevIconGroup");
inline const QString EventFlagsChanged = QStringLiteral("N_EventFlagsChanged");
inline const QString WindowWillResize = QStringLiteral("N_WindowWillResize");
inline const QString WindowDidResize = QStringLiteral("N_WindowDidResize");
inline const QString DarkModeChanged = QStringLiteral("N_DarkModeChanged");
inline const QString ApplicationDidFinishLaunching = QStringLiteral("applicationDidFinishLaunching");
} // namespace HVNotificationNames
