#pragma once

#include "platform/QVError.h"

#include <functional>
#include <memory>
#include <optional>

/// Receives either a record or an error. Called on the main thread, exactly once unless the application
/// object is destroyed before, and never before the requesting call has returned.
template<class Record>
using QVCompletion = std::function<void(std::shared_ptr<Record>, std::optional<QVError>)>;
