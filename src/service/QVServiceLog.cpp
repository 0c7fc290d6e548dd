#include "service/QVServiceLog.h"

Q_LOGGING_CATEGORY(qv_serviceLog, "quarvo.service", QtInfoMsg)
