#pragma once

#include "platform/Form.h"

namespace tollvane {

/// The look of the company information dialog.
const FormDescription& companyInfoLayout();

} // namespace tollvane
