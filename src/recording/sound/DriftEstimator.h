#pragma once

namespace vellora {

/// Fits a line through when samples were taken: seconds of the device's clock, which counts samples, against seconds of
/// the host's. Least squares, older observations weighing less. A plain value.
class DriftEstimator {
 public:
  /// At `hostTime` the device's clock showed `deviceTime`, which grows from call to call.
  void observe(double deviceTime, double hostTime);
  /// Samples were lost: the device's clock starts again, as fast or slow as it was.
  void restart();

  bool isEmpty() const { return weight_ <= 0; }
  double hostTimeOf(double deviceTime) const { return deviceTime + offsetAt(deviceTime); }
  double deviceTimeOf(double hostTime) const;
  /// By how much the host's clock gains in each second of the device's.
  double drift() const { return drift_; }

 private:
  static constexpr double memory = 20;  // seconds after which an observation weighs a third
  /// Before there are many, observations with an error of a millisecond and clocks that are off by 200 ppm or less are
  /// taken as likely: (1e-3 / 200e-6)².
  static constexpr double stiffness = 25;
  static constexpr double mostDrift = 2e-3;

  double offsetAt(double deviceTime) const { return reference_ + level_ + drift_ * (deviceTime - newest_); }

  double reference_ = 0;      // host time less device time at the first observation; the sums below lack it
  double newest_ = 0;         // device time of the newest observation; the sums below count from it
  double weight_ = 0;         // Σ w
  double times_ = 0;          // Σ w x
  double offsets_ = 0;        // Σ w y
  double squares_ = 0;        // Σ w x²
  double products_ = 0;       // Σ w x y
  double level_ = 0;          // of the line at newest_
  double drift_ = 0;          // its slope
  double expectedDrift_ = 0;  // without observations
};

}  // namespace vellora
