#pragma once

#include <cstdint>

#include "forms/Form.h"

namespace lumarin {

/// A top-level window that a job opens.
class JobWindow : public Form {
public:
    using Form::Form;

    /// Called once, before the window is shown: remembers the job, reads settings and contents. What it
    /// throws ends the start of the job.
    virtual void Init(std::int32_t JobIndex) = 0;
};

}  // namespace lumarin
