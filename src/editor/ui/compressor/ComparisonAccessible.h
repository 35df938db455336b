#pragma once

namespace vellora {

class ComparisonView;

/// Lets screen readers read and set the divider of comparisons as the value of a slider. Once is enough.
void installComparisonAccessible();

/// Tells them that the divider was moved.
void announceComparison(ComparisonView& view);

}  // namespace vellora
