#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace htr60::presentation {

/// Where a key moves to in an open list.
enum class ListMove { kUp, kDown, kPageUp, kPageDown, kHome, kEnd };

/// An open list: its lines, the one that a key would take, and the search of a long one. Lines are numbered from 0; a
/// text shown that is no row stands in the first and cannot be taken. Views make the lines that they show.
class ListSearch {
 public:
  static constexpr std::size_t kSearchedFrom = 34;  ///< rows, from which on a list has a search line
  static constexpr int kVisibleLines = 12;
  static constexpr int kNone = -1;

  /// Copies the rows: the program may fill the list anew while it stands open.
  ListSearch(std::span<const std::string_view> rows, std::string_view shown);

  bool HasSearchLine() const { return rows_.size() >= kSearchedFrom; }
  const std::string& Text() const { return text_; }
  /// Finds the rows that contain the text whatever the case: equal ones first, else in their order, doubled rows too.
  void Search(std::string_view text);
  /// Grows with every search, so that a view knows when its lines are others.
  int Generation() const { return generation_; }

  int Lines() const { return Extra() + static_cast<int>(found_.size()); }
  std::string_view Line(int line) const;
  /// The number of the list's row in a line, or `kNone`.
  int RowAt(int line) const;
  /// The text of a row, found or not.
  const std::string& Row(int row) const { return rows_[static_cast<std::size_t>(row)]; }

  /// The line that Enter takes, or `kNone`: it takes none that nobody has chosen.
  int Current() const { return current_; }
  void MoveTo(int line);
  void Move(ListMove move);
  /// To the next row that begins with the letter, round; for a list without a search line.
  void Find(std::string_view letter);

 private:
  int Extra() const { return now_.empty() ? 0 : 1; }

  std::vector<std::string> rows_;
  std::vector<std::u32string> folded_;  // for the search alone; empty before the first
  std::string now_;                     // the line of a text that is no row
  std::string text_;
  std::vector<int> found_;
  int shown_ = kNone;  // row of the text shown
  int current_ = kNone;
  int generation_ = 0;
};

}  // namespace htr60::presentation
