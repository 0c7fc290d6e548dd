#pragma once

/// \file
/// The mark of what hosts can use.

#include <QtCore/qglobal.h>

/// Marks what a host may link against; everything else in the library is hidden.
#ifdef QUARVO_BUILD
#define QUARVO_EXPORT Q_DECL_EXPORT
#else
#define QUARVO_EXPORT Q_DECL_IMPORT
#endif
