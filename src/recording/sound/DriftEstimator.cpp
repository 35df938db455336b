#include "recording/sound/DriftEstimator.h"

#include <algorithm>
#include <cmath>

namespace vellora {

void DriftEstimator::observe(double deviceTime, double hostTime) {
  if (isEmpty()) {
    reference_ = hostTime - deviceTime;
    newest_ = deviceTime;
  }
  const double passed = deviceTime - newest_;
  squares_ += passed * (passed * weight_ - 2 * times_);
  products_ -= passed * offsets_;
  times_ -= passed * weight_;
  newest_ = deviceTime;
  const double faded = std::exp(-passed / memory);
  for (double* sum : {&weight_, &times_, &offsets_, &squares_, &products_}) *sum *= faded;

  const double offset = hostTime - deviceTime - reference_;
  weight_ += 1;
  offsets_ += offset;

  // The spread of the observations around their mean, and the slope that is expected, as so much more spread.
  const double meanTime = times_ / weight_, meanOffset = offsets_ / weight_;
  const double spread = squares_ - times_ * meanTime, common = products_ - times_ * meanOffset;
  drift_ = (common + stiffness * expectedDrift_) / (spread + stiffness);
  drift_ = std::clamp(drift_, -mostDrift, mostDrift);
  level_ = meanOffset - drift_ * meanTime;
}

void DriftEstimator::restart() {
  const double drift = drift_;
  *this = {};
  drift_ = expectedDrift_ = drift;
}

double DriftEstimator::deviceTimeOf(double hostTime) const {
  const double newestHostTime = hostTimeOf(newest_);
  return newest_ + (hostTime - newestHostTime) / (1 + drift_);
}

}  // namespace vellora
