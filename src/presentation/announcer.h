#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/user_cntrl.h"

namespace htr60::presentation {

/// What a view tells assistive technology by itself: that the connection has changed, a warning that has come up, the
/// message line. What polling changes is never told.
class Announcer {
 public:
  explicit Announcer(UserCntrl& control);

  /// Once a turn. `page`: the one in front, or none; `late`: the line that warns of a missing answer, or empty.
  void Turn(const FormChanges& changes, const PageLayout* page, std::string_view late);
  void Say(std::string text);
  /// What there was to tell since the last call, in order; the oldest go where nobody asks.
  std::vector<std::string> Take();

 private:
  static constexpr std::size_t kMost = 100;

  // A message of a page, or the waiting panel: told when it comes to be seen.
  struct Message {
    const PageLayout* page;
    const LayoutGroup* group;
    const LayoutRow* row;
    std::string said;  // while it is to be seen
  };
  std::string Warning(const Message& message, const PageLayout* page) const;

  UserCntrl& control_;
  std::vector<Message> messages_;
  std::string connection_;
  std::string late_;
  std::vector<std::string> told_;
};

}  // namespace htr60::presentation
