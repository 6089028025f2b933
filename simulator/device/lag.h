#pragma once

#include <cmath>

namespace htr60::sim {

/// A first-order lag, one step a cycle; by default none.
class Lag {
 public:
  Lag() = default;
  /// Both in the same unit of time; a time constant of 0 or less is no lag.
  Lag(double timeConstant, double cycle)
      : remembers_(timeConstant > 0), share_(remembers_ ? 1 - std::exp(-cycle / timeConstant) : 1) {}

  /// What was before still counts.
  bool Remembers() const { return remembers_; }
  /// `steady`: the value that an unchanging target ends in.
  void Follow(double& value, double target, bool steady) const {
    if (steady || !remembers_) {
      value = target;
    } else {
      value += (target - value) * share_;
    }
  }

 private:
  bool remembers_ = false;
  double share_ = 1;
};

}  // namespace htr60::sim
