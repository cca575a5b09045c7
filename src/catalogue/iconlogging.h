// Why icons could not be loaded or cached icons were rebuilt: off unless
// QT_LOGGING_RULES="nimbo.icons.debug=true" (the one visible line per missing icon is a warning).
#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcIconLoading)
