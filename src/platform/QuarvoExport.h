#pragma once

/// \file
/// The export macro of the public interface.

#include <QtCore/qglobal.h>

/// Marks what a host may link against. Everything else in the library is hidden.
#ifdef QUARVO_BUILD
#define QUARVO_EXPORT Q_DECL_EXPORT
#else
#define QUARVO_EXPORT Q_DECL_IMPORT
#endif
