#pragma once

#include <QLoggingCategory>

// Never log addresses or answers here: they identify the user.
Q_DECLARE_LOGGING_CATEGORY(qv_serviceLog)
