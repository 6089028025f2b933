#include "windows/view/keys.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "windows/base/text.h"

namespace htr60::view {
namespace {

using presentation::Key;
using presentation::KeyPress;

constexpr struct {
  WPARAM virtualKey;
  Key key;
} kKeys[] = {
    {VK_TAB, Key::kTab},      {VK_RETURN, Key::kEnter},  {VK_ESCAPE, Key::kEscape}, {VK_SPACE, Key::kSpace},
    {VK_UP, Key::kUp},        {VK_DOWN, Key::kDown},     {VK_LEFT, Key::kLeft},     {VK_RIGHT, Key::kRight},
    {VK_PRIOR, Key::kPageUp}, {VK_NEXT, Key::kPageDown}, {VK_HOME, Key::kHome},     {VK_END, Key::kEnd},
    {VK_F1, Key::kF1},        {VK_F4, Key::kF4},         {VK_F5, Key::kF5},         {VK_F6, Key::kF6},
};

bool IsDown(int key) { return (GetKeyState(key) & 0x8000) != 0; }

constexpr LPARAM kRepeated = 1L << 30;

}  // namespace

std::optional<KeyPress> PressOf(const MSG& message) {
  KeyPress press;
  press.shift = IsDown(VK_SHIFT);
  press.control = IsDown(VK_CONTROL);
  press.alt = IsDown(VK_MENU);
  press.held = (message.lParam & kRepeated) != 0;
  if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
    const auto* const known =
        std::find_if(std::begin(kKeys), std::end(kKeys), [&](const auto& k) { return k.virtualKey == message.wParam; });
    if (known != std::end(kKeys)) {
      press.key = known->key;
      return press;
    }
    const bool letter = message.wParam >= 'A' && message.wParam <= 'Z';
    if (!letter || press.control == press.alt) return std::nullopt;  // both together are AltGr, which types
    press.key = Key::kCharacter;
    press.text = std::string(1, static_cast<char>(message.wParam));
    return press;
  }
  const auto character = static_cast<wchar_t>(message.wParam);
  if (message.message != WM_CHAR || character <= L' ' || character == 0x7F) return std::nullopt;
  press.key = Key::kCharacter;
  press.control = press.alt = false;  // they have made the character what it is
  press.text = com::Utf8WithMarks({&character, 1});
  return press;
}

}  // namespace htr60::view
