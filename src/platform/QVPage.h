#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QString>

/// Opens a web page in the user's browser. Returns whether that was tried.
///
/// The address may come from the network, so only http and https are allowed: any other scheme could start
/// any program that the desktop has registered for it.
QUARVO_CORE_EXPORT bool qv_openPage(const QString &address);
