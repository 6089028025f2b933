#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "presentation/presentation.h"
#include "shell/user_cntrl.h"
#include "windows/view/page_window.h"
#include "windows/view/tree_window.h"
#include "windows/view/window.h"

namespace htr60::view {

/// What the view needs of what holds it.
class IViewHolder {
 public:
  virtual ~IViewHolder() = default;
  /// Takes what has changed and shows it, now.
  virtual void TurnNow() = 0;
  /// The focus has come into the view, or left it.
  virtual void FocusChanged(bool inside) = 0;
  /// A window before which a box stands; the frame is told before and after.
  virtual HWND BeginBox() = 0;
  virtual void EndBox() = 0;
};

/// The whole control as an operator sees it: tree, header, page, action area, status. It holds no rule: it draws what
/// the presentation shows and hands it what the operator does.
class ControlView final : private Window, private IViewActs, public std::enable_shared_from_this<ControlView> {
 public:
  /// `owner` holds the rest, and is held while a message is handled.
  ControlView(IUnknown& owner, IViewHolder& holder, UserCntrl& control, presentation::Presentation& presented,
              HWND parent);
  ~ControlView() override;

  HWND Handle() const { return Window::Handle(); }
  /// Nothing more is shown or told: the view goes.
  void Close();
  void Move(HWND parent, const RECT& rect);
  void Show(bool shown);
  /// After a turn of the presentation.
  void Take();
  /// Puts the system's focus where the presentation has it.
  void TakeFocus();
  bool HasFocus() const;
  /// A key message of the frame's loop. True where it was taken.
  bool TakeAccelerator(const MSG& message);

 private:
  struct Strip {
    TabsId id;
    std::unique_ptr<Child> window;
    int index = 0;  // in front
  };
  struct BarButton {
    std::unique_ptr<ButtonField> window;
  };

  // Places, in pixels of the view.
  struct Places {
    RECT tree{}, header{}, waiting{}, bar{}, page{}, actions{}, status{};
    RECT title{}, data{}, purpose{};
    RECT message{};
    bool folded = false;
  };

  /// What the view paints itself, around its windows.
  enum : std::size_t {
    kTitle,
    kData,
    kLate,
    kPurpose,
    kWaiting,
    kBar,
    kMessage,
    kPicture,  // of the connection
    kFirstPanel,
    kParts = kFirstPanel + 4
  };
  struct Part {
    RECT rect{};  ///< empty: it is not there
    std::wstring text;
    UINT flags = 0;
    Look::Font font = Look::Font::kPlain;
    bool strip = false;  ///< on a ground of its own

    bool operator==(const Part& other) const;
  };
  using Parts = std::array<Part, kParts>;

  Hold Held() override;
  LRESULT OnMessage(UINT message, WPARAM word, LPARAM number) override;
  const Accessible& Told() const override { return told_; }
  bool TakeKey(const MSG& message) override;
  void Came(presentation::Spot spot) override;
  void Left(HWND other) override;
  bool Paste(ControlId field, std::wstring_view text) override;
  void ShowMenu(ControlId field, POINT at) override;
  void Pointed(const MSG& message) override;
  void Acted() override;
  void Wheel(int notches) override;

  void MakeLook();
  void Arrange();
  void ArrangeHeader(RECT column);
  void ArrangeStrips(RECT& column);
  void ArrangeBar(RECT& column);
  void ArrangeActions();
  void TakeStrips();
  void TakeButtons();
  void FollowFocus();
  Child* ChildAt(presentation::Spot spot);
  LRESULT OnNotify(NMHDR& header);
  void OnButton(const Child& child);
  void Activate(const std::optional<TreePlace>& place);
  void ShowHelp();
  Parts PartsNow() const;
  void PlacePanels(Parts& parts) const;
  void TakeParts();
  void PaintAll(const Canvas& canvas) const;
  void PaintProminent(const DRAWITEMSTRUCT& item) const;
  PlannedField Planned(std::wstring text, bool enabled, char mnemonic, std::string_view tip) const;

  IUnknown& owner_;
  IViewHolder& holder_;
  UserCntrl& control_;
  presentation::Presentation& presented_;
  const Accessible told_;
  std::unique_ptr<Look> look_;
  Tips tips_{Handle()};
  Places places_;
  Parts parts_;  // as last painted
  HICON icon_ = nullptr;
  std::unique_ptr<TreeWindow> tree_;
  std::unique_ptr<PageWindow> page_;
  std::vector<Strip> strips_;
  const PageLayout* stripsOf_ = nullptr;
  std::unique_ptr<ButtonField> back_, footer_, revert_, save_, write_, reopen_;
  std::vector<BarButton> bar_;
  bool closed_ = false;
  bool arranging_ = false;
  bool prominent_ = false;  // Write
  bool altUsed_ = false;    // since Alt went down
  bool moving_ = false;     // the focus, by the view itself
};

}  // namespace htr60::view
