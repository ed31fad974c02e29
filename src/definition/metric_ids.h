#pragma once

/// The ids of metric_ids.inc, one constant each, and all of them.
namespace vantrel::ids {

#define METRIC_ID(constant, id) inline constexpr char constant[] = id;
#include "definition/metric_ids.inc"
#undef METRIC_ID

inline constexpr const char* all[] = {
#define METRIC_ID(constant, id) constant,
#include "definition/metric_ids.inc"
#undef METRIC_ID
};

} // namespace vantrel::ids
