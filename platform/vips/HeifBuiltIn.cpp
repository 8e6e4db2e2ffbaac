#include "platform/vips/Library.h"

namespace lumarin::vips {

void LoadHeifReader() {}

}  // namespace lumarin::vips
