#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simulator/device/chain.h"
#include "simulator/device/reads.h"
#include "simulator/manager/settings.h"

namespace htr60::sim {

/// A fault that has been set, with what has become of it.
struct Fault {
  int id = 0;
  FaultSettings settings;
  bool active = false;
  bool over = false;
  std::optional<std::int64_t> left;  ///< answers that it still acts on
  std::uint64_t turn = 0;            ///< which of the wrong digits comes next

  bool Names(int code) const;
  bool Names(std::string_view tag) const;
  bool Acts(FaultKind kind, int code) const { return active && settings.kind == kind && Names(code); }
};

/// An answer document: plain, or with what the active faults make of it. A fault that has acted uses up one of its
/// count.
std::string AnswerDocument(const std::vector<AnswerTag>& tags, int code, std::vector<Fault>& faults);

/// The state document, likewise.
std::string StateDocument(bool online, int code, std::vector<Fault>& faults);

/// The faults of the sensors that are active.
SensorFaults FaultsOfSensors(const std::vector<Fault>& faults);

/// The fault acts on one answer more; false where its count is used up with it.
void Use(Fault& fault);

}  // namespace htr60::sim
