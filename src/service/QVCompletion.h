#pragma once

#include "platform/QVError.h"

#include <functional>
#include <memory>
#include <optional>

/// Receives either a record or an error: on the main thread, exactly once unless the application
/// object goes first, never before the call that it was given to has returned.
template<class Record>
using QVCompletion = std::function<void(std::shared_ptr<Record>, std::optional<QVError>)>;
