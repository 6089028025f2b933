#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "pages/pages.h"
#include "shell/user_cntrl.h"

namespace htr60 {

struct NoBoxes final : IMessageBoxes {
  BoxButton Show(const ModalBox& box) override { return box.buttons.front(); }
};
struct NoTimers final : ITimers {
  void Arm(int, std::int32_t) override {}
  void Disarm(int) override {}
};
struct NoIcons final : IIcons {
  bool Load(std::string_view) override { return true; }
};

/// A control with nothing around it: for tests that hand it documents by the thousand.
struct BareControl {
  NoBoxes boxes;
  NoTimers timers;
  NoIcons icons;
  std::shared_ptr<UserCntrl> control =
      UserCntrl::Create({.boxes = boxes, .timers = timers, .icons = icons}, PagesOfHtr60());
  UserCntrl& operator*() const { return *control; }
  UserCntrl* operator->() const { return control.get(); }
};

}  // namespace htr60
