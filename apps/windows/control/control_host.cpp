#include "windows/control/control_host.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "pages/pages.h"
#include "windows/base/text.h"
#include "windows/view/pictures.h"

namespace htr60::com {
namespace {

char DecimalSeparator() {
  std::array<wchar_t, 8> text{};
  GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, text.data(), static_cast<int>(text.size()));
  return text[0] == L',' ? ',' : '.';
}

std::int64_t Now() { return static_cast<std::int64_t>(GetTickCount64()); }

/// The time of day at an instant of `Now`.
std::string TimeOfDay(std::int64_t at) {
  constexpr std::int64_t kTicksPerMillisecond = 10000;
  FILETIME utc{};
  GetSystemTimeAsFileTime(&utc);
  std::int64_t ticks = (static_cast<std::int64_t>(utc.dwHighDateTime) << 32) | utc.dwLowDateTime;
  ticks -= (Now() - at) * kTicksPerMillisecond;
  utc = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  FILETIME local{};
  SYSTEMTIME time{};
  FileTimeToLocalFileTime(&utc, &local);
  FileTimeToSystemTime(&local, &time);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%02u:%02u:%02u", time.wHour, time.wMinute, time.wSecond);
  return text.data();
}

UINT StyleOf(const ModalBox& box) {
  const bool question = std::find(box.buttons.begin(), box.buttons.end(), BoxButton::kNo) != box.buttons.end();
  // Closing a question counts as No, so No is what Enter presses.
  const UINT buttons = question ? MB_YESNO | MB_DEFBUTTON2 : MB_OK;
  switch (box.icon) {
    case BoxIcon::kInformation:
      return buttons | MB_ICONINFORMATION;
    case BoxIcon::kStop:
      return buttons | MB_ICONSTOP;
    case BoxIcon::kNone:
      break;
  }
  return buttons;
}

}  // namespace

ControlHost::ControlHost(IUnknown& owner, Around around)
    : owner_(owner),
      around_(std::move(around)),
      receiver_(ComPtr<Receiver>::Attach(new Receiver(*this, Handle(), kAnswer))) {
  calls_->ended = [receiver = receiver_] { receiver->Resume(); };
  const Ports ports{
      .boxes = *this, .timers = *this, .icons = *this, .watcher = this, .decimalSeparator = DecimalSeparator()};
  control_ = UserCntrl::Create(ports, PagesOfHtr60());
  presentation_.emplace(*control_, presentation::Surroundings{
                                       .now = &Now, .timeOfDay = &TimeOfDay, .changed = [this] { FormChanged(); }});
}

// The control goes before its ports. What the manager's interfaces call when they are let go finds no taker.
ControlHost::~ControlHost() {
  receiver_->Close();
  calls_->ended = nullptr;
  presentation_.reset();
  control_.reset();
}

bool ControlHost::Init(std::wstring_view invokeId, std::wstring_view functionCall, const ComPtr<IUnknown>& dtm) {
  return control_->Init(Utf8WithMarks(invokeId), Utf8WithMarks(functionCall),
                        MakeDtm(dtm, ComPtr<IUnknown>(static_cast<IUpdateUI*>(receiver_.Get())), calls_));
}

void ControlHost::OnMessage(UINT message, WPARAM word) {
  const ComPtr<IUnknown> hold(&owner_);  // goes last, and with it perhaps this
  switch (message) {
    case WM_TIMER:
      return TimerIsDue(word);
    case kTurn:
      return TurnNow();
    case kAnswer:
      return receiver_->HandleOne();
    default:
      return;
  }
}

void ControlHost::TakeAnswer(std::int32_t code, std::string_view document) {
  const ComPtr<IUnknown> hold(&owner_);
  control_->UpdateUI(code, document);
}

// ---- timers and turns

void ControlHost::Arm(int timer, std::int32_t milliseconds) {
  SetTimer(Handle(), static_cast<UINT_PTR>(timer) + 1, static_cast<UINT>(std::max(milliseconds, 0)), nullptr);
}

void ControlHost::Disarm(int timer) { KillTimer(Handle(), static_cast<UINT_PTR>(timer) + 1); }

// The system's timers come again and again; the control's once. One that cannot be handled now comes again.
void ControlHost::TimerIsDue(UINT_PTR timer) {
  if (timer == kDeadline) {
    KillTimer(Handle(), timer);
    TurnNow();
  } else if (!Full()) {
    KillTimer(Handle(), timer);
    control_->TimerDue(static_cast<int>(timer) - 1);
  }
}

void ControlHost::FormChanged() {
  if (turnPosted_) return;
  turnPosted_ = PostMessageW(Handle(), kTurn, 0, 0) != FALSE;
}

void ControlHost::TurnNow() {
  turnPosted_ = false;
  presentation_->Turn();
  presentation_->Show();
  around_.turned();
  if (const auto at = presentation_->NextDeadline()) {
    constexpr std::int64_t kLongest = 24 * 60 * 60 * 1000;
    const std::int64_t wait = std::clamp<std::int64_t>(*at - Now(), 0, kLongest);
    SetTimer(Handle(), kDeadline, static_cast<UINT>(wait), nullptr);
  } else {
    KillTimer(Handle(), kDeadline);
  }
}

// ---- boxes and icons

BoxButton ControlHost::Show(const ModalBox& box) {
  const ComPtr<IUnknown> hold(&owner_);
  const std::wstring text = Utf16WithMarks(box.text);
  const std::wstring caption = Utf16WithMarks(box.caption);
  ++openBoxes_;
  const HWND before = around_.begin();
  const int pressed = MessageBoxW(before, text.c_str(), caption.c_str(), StyleOf(box));
  around_.end();
  --openBoxes_;
  receiver_->Resume();
  switch (pressed) {
    case IDYES:
      return BoxButton::kYes;
    case IDOK:
      return BoxButton::kOk;
    default:
      return (StyleOf(box) & MB_YESNO) != 0 ? BoxButton::kNo : BoxButton::kOk;
  }
}

// Asked at every answer: what has been loaded once is not looked for again.
bool ControlHost::Load(std::string_view fileName) {
  const auto known = std::find(icons_.begin(), icons_.end(), std::string(fileName));
  if (known != icons_.end()) return true;
  const HICON icon = view::LoadIconFile(fileName, GetSystemMetrics(SM_CXSMICON));
  if (icon == nullptr) return false;
  DestroyIcon(icon);
  const auto free = std::find(icons_.begin(), icons_.end(), std::nullopt);
  if (free != icons_.end()) *free = fileName;
  return true;
}

}  // namespace htr60::com
