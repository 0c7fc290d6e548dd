#include "settings/QVInternalConsistencyError.h"

QVInternalConsistencyError::~QVInternalConsistencyError() = default;
