#pragma once

#include <stdexcept>

/// Thrown if a part of the installed program is missing, which cannot be repaired at run time.
class QVInternalConsistencyError : public std::logic_error
{
public:
    using std::logic_error::logic_error;
    ~QVInternalConsistencyError() override;
};
