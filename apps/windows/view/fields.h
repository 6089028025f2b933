#pragma once

#include <memory>
#include <string>

#include "windows/view/child.h"
#include "windows/view/page_plan.h"

namespace htr60::view {

/// The window of a control at its place on the page.
class FieldWindow {
 public:
  virtual ~FieldWindow() = default;
  virtual Child& Own() = 0;
  /// Stands within a frame, which the page paints where `IsFramed`.
  virtual void Place(const RECT& frame, const PlannedField& /*field*/, const Look& /*look*/) { Own().Place(frame); }
  virtual bool IsFramed() const { return false; }
  /// Takes what is planned of it.
  virtual void Take(const PlannedField& field, const Look& look) = 0;
  /// Part of its text is not to be seen.
  virtual bool CutOff() const { return false; }
  /// Its whole text is selected.
  virtual void SelectAll() {}
  /// Part of its text is selected; then a copy is the window's own.
  virtual bool HasSelection() const { return false; }
};

/// The operator changes a text: after EN_CHANGE of a window that is typed into.
class EntryField final : public FieldWindow, private Child {
 public:
  EntryField(IViewActs& acts, HWND page, const PlannedField& field, int longest);

  Child& Own() override { return *this; }
  void Place(const RECT& frame, const PlannedField& field, const Look& look) override;
  bool IsFramed() const override { return true; }
  void Take(const PlannedField& field, const Look& look) override;
  void SelectAll() override;
  bool HasSelection() const override;
  bool CutOff() const override;
  /// The text as the operator has left it, where it is not the program's.
  bool IsTyped() const { return typed_ && !taking_; }
  bool IsPale() const { return pale_; }
  void PasteFromClipboard() { SendMessageW(Handle(), WM_PASTE, 0, 0); }
  void CopyToClipboard();

 private:
  LRESULT OnMessage(UINT message, WPARAM word, LPARAM number) override;
  bool TooLong() const;
  void PaintTooLong();

  const bool typed_;
  bool number_ = false;
  bool pale_ = false;
  bool taking_ = false;
  const Look* look_ = nullptr;
  Look::Font font_ = Look::Font::kPlain;
};

class ButtonField final : public FieldWindow, private Child {
 public:
  ButtonField(IViewActs& acts, HWND parent, presentation::Spot spot, DWORD style = BS_PUSHBUTTON);
  Child& Own() override { return *this; }
  void Take(const PlannedField& field, const Look& look) override;
};

/// Rows to be read, with a shape before each alarm.
class RowsField final : public FieldWindow, private Child {
 public:
  RowsField(IViewActs& acts, HWND page, const PlannedField& field);
  Child& Own() override { return *this; }
  void Place(const RECT& frame, const PlannedField& field, const Look& look) override;
  bool IsFramed() const override { return true; }
  void Take(const PlannedField& field, const Look& look) override;
  void PaintRow(const DRAWITEMSTRUCT& item, const Look& look) const;
  std::wstring Rows() const { return rows_; }

 private:
  std::wstring rows_;
  RowRole role_ = RowRole::kNone;
};

/// A caption for a button: its letter underlined, an & as it stands.
std::wstring WithMnemonic(const std::wstring& caption, char letter);

/// Puts a text on the clipboard.
void CopyText(HWND owner, const std::wstring& text);

}  // namespace htr60::view
