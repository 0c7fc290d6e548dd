#pragma once

#include <stdexcept>

/// Thrown where the program itself is put together wrongly, which no user could mend at run time.
class QVInternalConsistencyError : public std::logic_error
{
public:
    using std::logic_error::logic_error;
    ~QVInternalConsistencyError() override;
};
