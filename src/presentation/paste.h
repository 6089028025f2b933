#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/screen.h"
#include "shell/user_cntrl.h"

namespace htr60::presentation {

/// Rows of one or two columns, as a spreadsheet copies them.
struct PastedColumns {
  struct Row {
    std::string cells[2];
    bool numbers = false;  ///< as many numbers of the locale as there are columns
  };
  std::size_t columns = 0;  ///< of the widest row; more than two fit no point
  std::size_t lines = 0;    ///< how many rows there are, a first line without any number aside
  std::vector<Row> rows;    ///< the first of them, at most as many as asked for
};

/// Cells stand between tabs, else between semicolons, else between blanks.
PastedColumns ParseColumns(std::string_view text, char decimalSeparator, std::size_t most);

/// Columns on their way into a table of points. It types nothing itself: it says what is to be typed.
class Paste {
 public:
  explicit Paste(UserCntrl& control) : control_(control) {}

  /// Takes columns for the point of `field`. False, and nothing is taken, where the field is no point of a table on
  /// `page` that can be typed into, or the text is one cell.
  bool Begin(const PageLayout& page, TextId field, std::string_view text);
  void End() { group_ = nullptr; }

  /// There are more rows than enabled points, and the operator can have more: the bar that asks.
  std::optional<ScreenBar> Question() const;
  /// The list that holds the number of points, and its row for as many as the question offers.
  struct Points {
    ChoiceId list{};
    std::size_t row = 0;
  };
  std::optional<Points> PointsWanted() const;

  /// What is typed into the points as they are enabled now, in order.
  struct Typed {
    TextId field;
    std::string text;
  };
  std::vector<Typed> Fields() const;
  /// The rows that were left out: "Row 3: no number."; empty where there are none.
  std::string Remark() const;

 private:
  std::size_t EnabledPoints() const;
  std::size_t Wanted() const;

  UserCntrl& control_;
  const LayoutGroup* group_ = nullptr;  // none: nothing is being pasted
  std::size_t first_ = 0;               // the point to begin at
  bool second_ = false;                 // a single column goes into the second fields
  bool asked_ = false;
  PastedColumns pasted_;
};

}  // namespace htr60::presentation
