#pragma once

#include <memory>
#include <vector>

#include "figures/figure.h"
#include "windows/view/choice_field.h"
#include "windows/view/fields.h"
#include "windows/view/page_plan.h"
#include "windows/view/tips.h"
#include "windows/view/window.h"

namespace htr60::view {

/// The groups of the page in front. Captions, units, words, shapes and the figure are painted; a window of its own has
/// what the focus can go to. It scrolls where the page is larger.
class PageWindow final : public Window {
 public:
  PageWindow(IViewActs& acts, UserCntrl& control, presentation::Presentation& presented, HWND parent);

  ~PageWindow() override { Forget(); }

  /// Takes what is shown now, in the style of `look`, which outlives the next call.
  void Take(const Look& look);
  /// The window of a control; null where it is not to be seen.
  FieldWindow* FieldOf(ControlId control) const;
  FieldWindow* FieldOf(const Child& child) const;
  void ScrollTo(ControlId control);
  /// The pointer is over one of the view's windows, for the tooltips.
  void Pointed(const MSG& message) const { tips_.Relay(message); }
  void Scroll(int notches);
  /// The focus has gone to `window`: the frames of two fields change.
  void FollowFocus(HWND window);
  /// After the windows are in their places: the open list follows the presentation.
  void FollowList();
  const PagePlan& Plan() const { return plan_; }

 private:
  struct Placed {
    ControlId control;
    RowKind kind;
    bool number;  // the system's window cannot change its side afterwards
    std::unique_ptr<FieldWindow> window;
    bool planned = false;
  };

  Hold Held() override { return acts_.Held(); }
  LRESULT OnMessage(UINT message, WPARAM word, LPARAM number) override;
  FieldWindow& WindowFor(const PlannedField& field);
  void Forget();
  /// True where the drawing is another than that painted last.
  bool TakeFigure();
  void PlaceFields();
  void SetBars();
  void ScrollBy(int bar, int request, int track);
  void MoveTo(POINT offset);
  void InvalidatePlanned(RECT rect) const;
  /// `part` of the window; what lies outside may be left out.
  void PaintPage(const Canvas& canvas, const RECT* part);
  void PaintFrame(const Canvas& canvas, const PlannedField& field) const;
  void PaintText(const Canvas& canvas, const PlannedText& text) const;
  void ColourField(HDC context, HWND window, bool readOnly, LRESULT& brush) const;
  void Clicked(int x, int y);
  std::wstring TipOf(HWND window) const;

  IViewActs& acts_;
  UserCntrl& control_;
  presentation::Presentation& presented_;
  const Look* look_ = nullptr;
  const PageLayout* page_ = nullptr;
  Tips tips_{Handle()};
  PagePlan plan_;
  Figure figure_;        // as last painted
  ControlId focused_{};  // the field whose frame tells the focus
  std::vector<Placed> fields_;
  POINT offset_{};  // what is scrolled away
  SIZE room_{};     // of the plan
};

}  // namespace htr60::view
