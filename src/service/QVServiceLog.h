#pragma once

#include <QLoggingCategory>

// Never given an address or an answer: they identify the user.
Q_DECLARE_LOGGING_CATEGORY(qv_serviceLog)
