#pragma once

#include <memory>
#include <optional>

#include "presentation/keyboard.h"
#include "windows/view/fields.h"
#include "windows/view/window.h"

namespace htr60::view {

/// The lines of an open list below its field. It never has the focus: the keys stay with the field.
class ListPopup final : public Window {
 public:
  ListPopup(IViewActs& acts, presentation::Keyboard& keys, HWND field, const Look& look);

  bool Shows(const std::shared_ptr<presentation::ListSearch>& list) const { return list == list_; }
  /// Takes the line that a key would take, and what was searched.
  void Follow();
  void Scroll(int lines);

 private:
  Hold Held() override { return acts_.Held(); }
  LRESULT OnMessage(UINT message, WPARAM word, LPARAM number) override;
  void Place();
  void SetBar();
  int LineHeight() const;
  int SearchHeight() const;
  int VisibleLines() const;
  std::optional<int> LineAt(int y) const;
  void PaintLines(const Canvas& canvas);

  IViewActs& acts_;
  presentation::Keyboard& keys_;
  std::shared_ptr<presentation::ListSearch> list_;
  HWND field_;
  const Look& look_;
  int top_ = 0;
  int generation_ = -1;
  int current_ = -1;
};

/// A closed list: its text and an arrow. It shows any text; the operator picks rows of the open list.
class ChoiceField final : public FieldWindow, private Child {
 public:
  ChoiceField(IViewActs& acts, presentation::Keyboard& keys, HWND page, const PlannedField& field);

  Child& Own() override { return *this; }
  void Take(const PlannedField& field, const Look& look) override;
  bool CutOff() const override;
  /// Shows or closes the open list as the presentation has it.
  void Follow();
  /// The wheel turns over the open list; false where none is open.
  bool Scroll(int notches);

 private:
  LRESULT OnMessage(UINT message, WPARAM word, LPARAM number) override;
  RECT RoomOfText() const;
  void PaintField(HDC context);

  presentation::Keyboard& keys_;
  const Look* look_ = nullptr;
  std::wstring text_;
  bool pale_ = false;
  bool enabled_ = true;
  std::unique_ptr<ListPopup> popup_;
};

}  // namespace htr60::view
