#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "shell/user_cntrl.h"

namespace htr60::presentation {

enum class HealthState : std::uint8_t { kNotRead, kGood, kFunctionCheck, kOutOfSpecification, kFailure };

/// "not read", "good", "function check", ...: the name of a state as scripts know it.
std::string_view NameOf(HealthState state);

/// The worst of what was last read, from the rows that the units declare for it.
class Health {
 public:
  explicit Health(UserCntrl& control);

  /// Once a turn: takes what the program has set since. `now`: the time of that reading.
  void Turn(const FormChanges& changes, std::int64_t now);

  HealthState State() const;
  /// "Failure: Sensor Diag", "Good", "not read".
  std::string Text() const;
  /// When the worst was read, and the node that was activated then; 0 and empty where nothing was.
  std::int64_t ReadAt() const;
  const std::string& Node() const;

 private:
  static constexpr auto kItems = static_cast<std::size_t>(HealthItem::kAiOut);  // those before are no shared ones
  struct Source {
    ControlId control;
    RowKind kind;
    HealthItem item;
    std::uint32_t sets = 0;
  };
  struct Quantity {
    bool read = false;
    HealthState state = HealthState::kGood;
    std::int64_t at = 0;
    std::string node;
  };
  struct PageOfBlock {
    std::string_view name;
    int block;
  };
  /// The block of the current page; 0 where it is of none.
  int BlockOfPage() const;
  void Take(const Source& source, std::int64_t now);
  const Quantity* Worst() const;

  UserCntrl& control_;
  std::vector<Source> sources_;
  std::array<std::uint8_t, kControlCount> sourceOf_{};  // by ordinal: number of the source from 1, 0: none
  std::vector<PageOfBlock> blocks_;
  std::array<Quantity, kItems> quantities_;
};

}  // namespace htr60::presentation
