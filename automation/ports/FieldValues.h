#pragma once

#include "automation/calls/Values.h"
#include "entry/FieldValue.h"

namespace lumarin::automation {

/// A column's value of any type that a database yields. Whole numbers of every type, true (-1) and false, and
/// money without cents are numbers; everything else but null and empty is the text that `TextOf` makes of it.
FieldValue FieldOf(const VARIANT& value);

}  // namespace lumarin::automation
