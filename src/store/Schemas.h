#pragma once

#include "FieldScheme.h"

namespace ordwell {

// The organisation's details and the list of vendors.
const Schema& systemSchema();

// One vendor's details, barcode rules, catalogue and orders.
const Schema& vendorSchema();

} // namespace ordwell
