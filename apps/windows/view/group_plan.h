#pragma once

#include <string>
#include <vector>

#include "presentation/line_words.h"
#include "windows/view/page_plan.h"

namespace htr60::view {

/// One group of the page in front: measured, then placed.
class GroupPlan {
 public:
  GroupPlan(UserCntrl& control, presentation::Presentation& presented, const Look& look, const PageLayout& page,
            const LayoutGroup& group);

  const LayoutGroup& Group() const { return group_; }
  bool Shows() const { return shows_; }
  bool Fills() const;
  bool SharesCaptionWidth() const { return group_.columns == 1 && captioned_; }
  int CaptionWidth() const;
  void SetCaptionWidth(int width) { captionWidth_ = width; }

  int Wanted() const;
  int Least() const;
  int HeightAt(int width) const;
  void Place(const presentation::FlowRect& rect, PagePlan& plan) const;

 private:
  /// A piece of a line.
  struct Cell {
    enum class What { kCaption, kShape, kField, kUnit, kWords };
    What what = What::kField;
    const LayoutRow* row = nullptr;
    RowKind kind = RowKind::kText;
    ControlId control{};
    std::wstring text;
    int wanted = 0;
    int least = 0;
    int before = 0;     ///< of `wanted`: room for alignment, which gives way before anything else does
    int after = 0;      ///< likewise
    bool page = false;  ///< takes all the width there is
    bool pale = false;
    presentation::LineWords words{};
  };
  struct Line {
    std::wstring caption;  ///< in the column of captions
    ControlId captioned{};
    bool above = false;  ///< the caption stands above
    bool wide = false;   ///< begins where captions do
    bool shows = false;
    bool changes = false;
    std::vector<const LayoutRow*> rows;
    std::vector<Cell> cells;
  };

  bool IsTight() const { return group_.columns > 1 || page_.tight; }
  int Aside() const { return page_.tight ? look_.Character() / 2 : look_.Character(); }
  int Above() const;
  int Below() const { return boxed_ ? look_.Character() : look_.Character() / 2; }
  int CellGap() const { return look_.Character() / (IsTight() ? 3 : 2) + 1; }
  int ColumnGap() const { return IsTight() ? look_.Character() / 2 : look_.Character(); }
  int CaptionAbove() const { return look_.Line() + look_.Character() / 2; }
  int LineGap() const { return std::max(2, look_.Character() * 2 / 3); }

  void AddRow(const LayoutRow& row);
  void AddField(Line& line, const LayoutRow& row, bool second);
  void AddUnit(Line& line, const LayoutRow& row);
  void AddWords(Line& line);
  void AlignJoined();
  void AlignButtons();
  Cell FieldCell(const LayoutRow& row, RowKind kind, ControlId control, WidthClass width) const;
  int FieldHeight(const Cell& cell) const;
  int LineHeight(const Line& line, int width) const;
  int LinesInColumn() const;
  int WidthOfLine(const Line& line, bool least) const;
  int Width(bool least) const;
  int Captions(int column) const;
  std::vector<int> ColumnWidths(int width) const;
  void PlaceLine(const Line& line, RECT room, int captions, PagePlan& plan) const;
  void PlaceCell(const Cell& cell, const RECT& rect, PagePlan& plan) const;
  void PlaceField(const Cell& cell, const RECT& rect, PagePlan& plan) const;

  UserCntrl& control_;
  presentation::Presentation& presented_;
  const Look& look_;
  const PageLayout& page_;
  const LayoutGroup& group_;
  std::wstring title_;
  char mnemonic_ = '\0';
  bool boxed_ = false;
  bool buttonsOnly_ = true;
  bool captioned_ = false;
  bool unitBeforeSecond_ = false;
  bool shows_ = false;
  int captionWidth_ = 0;
  std::vector<Line> lines_;
};

}  // namespace htr60::view
