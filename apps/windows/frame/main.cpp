// A small frame: one or two controls side by side, each with a simulated transmitter, in the system's own container.
//
//   htr60-frame [PRESET]
//
// The presets are those of the simulated transmitter; its menu lists them.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "windows/base/module.h"
#include "windows/frame/frame_control.h"
#include "windows/win.h"

namespace {

using htr60::frame::FrameControl;

constexpr wchar_t kClass[] = L"Htr60Frame";
constexpr UINT_PTR kOffline = 1;
constexpr UINT_PTR kSecond = 2;
constexpr UINT_PTR kQuit = 3;
constexpr UINT_PTR kFirstPreset = 100;

class Frame {
 public:
  explicit Frame(std::wstring preset) : preset_(std::move(preset)) {}

  bool Open();
  int Run();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept;
  LRESULT OnMessage(UINT message, WPARAM word, LPARAM number);
  void OnCommand(UINT_PTR command);
  void MakeMenu();
  void Begin();
  void AddControl();
  void Arrange();
  void CheckMenu();

  HWND window_ = nullptr;
  std::wstring preset_;
  std::vector<std::wstring> presets_;
  std::vector<std::unique_ptr<FrameControl>> controls_;
};

bool Frame::Open() {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = &Frame::Procedure;
  description.hInstance = htr60::com::Module();
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = kClass;
  RegisterClassExW(&description);
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  window_ = CreateWindowExW(0, kClass, L"HTR60 - SIMULATED", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                            CW_USEDEFAULT, MulDiv(1100, dpi, 96), MulDiv(720, dpi, 96), nullptr, nullptr,
                            htr60::com::Module(), nullptr);
  if (window_ == nullptr) return false;
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  Begin();
  MakeMenu();
  ShowWindow(window_, SW_SHOWDEFAULT);
  if (!controls_.empty()) controls_.front()->Activate();
  return controls_.front()->Fault().empty();
}

void Frame::Begin() {
  controls_.clear();
  AddControl();
}

void Frame::AddControl() {
  controls_.push_back(std::make_unique<FrameControl>(window_));
  FrameControl& control = *controls_.back();
  if (control.Fault().empty()) control.Start(preset_);
  if (!control.Fault().empty()) MessageBoxW(window_, control.Fault().c_str(), L"HTR60", MB_OK | MB_ICONSTOP);
  Arrange();
}

void Frame::MakeMenu() {
  const HMENU simulator = CreatePopupMenu();
  AppendMenuW(simulator, MF_STRING, kOffline, L"Offline");
  const HMENU presets = CreatePopupMenu();
  std::wstring names = controls_.front()->PresetNames();
  for (std::size_t from = 0; from < names.size();) {
    const std::size_t end = std::min(names.find(L' ', from), names.size());
    presets_.push_back(names.substr(from, end - from));
    AppendMenuW(presets, MF_STRING, kFirstPreset + presets_.size() - 1, presets_.back().c_str());
    from = end + 1;
  }
  AppendMenuW(simulator, MF_POPUP, reinterpret_cast<UINT_PTR>(presets), L"Start Anew With");
  AppendMenuW(simulator, MF_STRING, kSecond, L"Second Control");
  AppendMenuW(simulator, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(simulator, MF_STRING, kQuit, L"Quit");
  const HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(simulator), L"Simulator");
  SetMenu(window_, bar);
}

void Frame::CheckMenu() {
  const bool offline = !controls_.empty() && !controls_.front()->Online();
  CheckMenuItem(GetMenu(window_), kOffline, MF_BYCOMMAND | (offline ? MF_CHECKED : MF_UNCHECKED));
  CheckMenuItem(GetMenu(window_), kSecond, MF_BYCOMMAND | (controls_.size() > 1 ? MF_CHECKED : MF_UNCHECKED));
}

void Frame::OnCommand(UINT_PTR command) {
  if (command == kOffline) {
    const bool online = controls_.front()->Online();
    for (const auto& control : controls_) control->SetOnline(!online);
  } else if (command == kSecond) {
    if (controls_.size() > 1) {
      controls_.pop_back();
      Arrange();
    } else {
      AddControl();
    }
    controls_.back()->Activate();
  } else if (command == kQuit) {
    DestroyWindow(window_);
  } else if (command >= kFirstPreset && command - kFirstPreset < presets_.size()) {
    preset_ = presets_[command - kFirstPreset];
    SetWindowTextW(window_, (L"HTR60 - SIMULATED: " + preset_).c_str());
    Begin();
    controls_.front()->Activate();
  }
}

void Frame::Arrange() {
  RECT room{};
  GetClientRect(window_, &room);
  const auto count = static_cast<LONG>(controls_.size());
  for (LONG i = 0; i < count; ++i) {
    RECT rect = room;
    rect.left = room.right * i / count;
    rect.right = room.right * (i + 1) / count;
    controls_[static_cast<std::size_t>(i)]->Place(rect);
  }
}

LRESULT Frame::OnMessage(UINT message, WPARAM word, LPARAM number) {
  switch (message) {
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(word));
      return 0;
    case WM_INITMENUPOPUP:
      CheckMenu();
      return 0;
    case WM_DESTROY:
      controls_.clear();
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window_, message, word, number);
  }
}

LRESULT CALLBACK Frame::Procedure(HWND window, UINT message, WPARAM word, LPARAM number) noexcept {
  auto* const self = reinterpret_cast<Frame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, word, number);
  try {
    return self->OnMessage(message, word, number);
  } catch (...) {
    return 0;
  }
}

int Frame::Run() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (key && std::any_of(controls_.begin(), controls_.end(), [&](auto& c) { return c->TakesKey(message); })) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::wstring preset = words != nullptr && count > 1 ? words[1] : L"";
  LocalFree(words);
  OleInitialize(nullptr);
  int result = 1;
  {
    const htr60::frame::Servers servers;
    Frame frame(std::move(preset));
    if (frame.Open()) result = frame.Run();
  }
  OleUninitialize();
  return result;
}
