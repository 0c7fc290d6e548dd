#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QString>

/// Opens a web page in the user's browser and tells whether that was tried.
///
/// The address may come from the network, so only http and https are let through: any other scheme
/// would hand a stranger the desktop's whole set of registered programs.
QUARVO_CORE_EXPORT bool qv_openPage(const QString &address);
