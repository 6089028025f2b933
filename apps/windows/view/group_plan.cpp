#include "windows/view/group_plan.h"

#include <algorithm>
#include <numeric>

#include "presentation/field_help.h"
#include "presentation/page_rows.h"
#include "text/numbers.h"
#include "windows/base/text.h"

namespace htr60::view {
namespace {

using presentation::ScreenRow;

constexpr int kUnitCharacters = 16;
constexpr int kLeastUnitCharacters = 6;
constexpr int kTightCharacters = 8;
constexpr int kMostTight = 28;  // longer texts are statuses
constexpr int kLeastCharacters = 24;
constexpr int kLargeShare = 10;  // of 16 characters: large digits, and as many of them as a value has

std::wstring Wide(std::string_view text) { return com::Utf16WithMarks(text); }

bool SpansPage(RowKind kind) { return kind == RowKind::kMsg || kind == RowKind::kFixed; }
bool IsButton(RowKind kind) { return kind == RowKind::kOpen || kind == RowKind::kWrite; }
bool CanBeChanged(RowKind kind) { return kind == RowKind::kEdit || kind == RowKind::kNum || kind == RowKind::kList; }

int CharactersOf(RowKind kind, WidthClass width, int numberWidth) {
  if (width == WidthClass::kKind) width = WidthOf(kind);
  switch (width) {
    case WidthClass::kS:
      return 8;
    case WidthClass::kM:
      return 28;
    case WidthClass::kW:
    case WidthClass::kPage:
      return 50;
    case WidthClass::kN:
    case WidthClass::kKind:
      break;
  }
  return kind == RowKind::kNum || kind == RowKind::kValue ? numberWidth : 16;
}

}  // namespace

GroupPlan::GroupPlan(UserCntrl& control, presentation::Presentation& presented, const Look& look,
                     const PageLayout& page, const LayoutGroup& group)
    : control_(control), presented_(presented), look_(look), page_(page), group_(group) {
  Form& form = control_.form;
  title_ = Wide(presentation::TitleOf(form, group));
  boxed_ = group.box && (!group.caption.empty() || group.frame);
  for (const LayoutRow& row : group.rows) {
    buttonsOnly_ = buttonsOnly_ && IsButton(row.kind);
    unitBeforeSecond_ = unitBeforeSecond_ || (row.second && (row.unit.control || !row.unit.text.empty()));
  }
  for (const LayoutRow& row : group.rows) AddRow(row);
  for (Line& line : lines_) AddWords(line);
  AlignJoined();
  AlignButtons();
  for (const presentation::ScreenGroup& shown : presented.Shown().groups) {
    if (shown.group == &group) mnemonic_ = shown.mnemonic;
  }
  const bool own = !group.frame || form.Any(group.frame).Visible();
  shows_ =
      own && (lines_.empty() || std::any_of(lines_.begin(), lines_.end(), [](const Line& line) { return line.shows; }));
}

// ---- what stands in a line

void GroupPlan::AddRow(const LayoutRow& row) {
  Form& form = control_.form;
  const bool joins = row.sameLine && !lines_.empty();
  if (!joins) {
    Line line;
    line.wide = SpansPage(row.kind) || row.captionAbove || (buttonsOnly_ && IsButton(row.kind));
    line.above = row.captionAbove;
    lines_.push_back(line);
  }
  Line& line = lines_.back();
  const bool fits = presentation::IsShown(form, group_, row);
  const bool first = fits && (!row.control || form.Any(row.control).Visible());
  const bool second = fits && row.second && form.Any(row.second).Visible();
  const bool captionAlone = !row.control && row.kind != RowKind::kFixed;
  const bool ownCaption = !row.captionControl || form.Any(row.captionControl).Visible();
  const bool shown = captionAlone ? ownCaption : first || second;
  line.shows = line.shows || shown;
  line.rows.push_back(&row);
  if (!IsButton(row.kind) && !SpansPage(row.kind)) {
    captioned_ = captioned_ || !row.captionAbove;
    const std::wstring caption = shown && ownCaption ? Wide(presentation::CaptionOf(form, row, false)) : std::wstring();
    if (!joins) {
      line.caption = caption;
      line.captioned = row.control;
    } else if (!caption.empty()) {
      const int width = look_.WidthOf(caption);
      line.cells.push_back({.what = Cell::What::kCaption,
                            .row = &row,
                            .control = row.control,
                            .text = caption,
                            .wanted = width,
                            .least = width});
    }
  }
  if (first && (row.control || row.kind == RowKind::kFixed)) AddField(line, row, false);
  if (shown) AddUnit(line, row);
  if (second) {
    if (!row.secondCaption.empty()) {
      const std::wstring caption = Wide(row.secondCaption);
      const int width = look_.WidthOf(caption);
      line.cells.push_back({.what = Cell::What::kCaption,
                            .row = &row,
                            .control = row.second,
                            .text = caption,
                            .wanted = width,
                            .least = width});
    }
    AddField(line, row, true);
  }
}

GroupPlan::Cell GroupPlan::FieldCell(const LayoutRow& row, RowKind kind, ControlId control, WidthClass width) const {
  Cell cell;
  cell.row = &row;
  cell.kind = kind;
  cell.control = control;
  cell.page = width == WidthClass::kPage || kind == RowKind::kMsg;
  if (IsButton(kind)) {
    std::string_view own = control_.form.TextOf(control);
    if (own.empty()) own = presentation::CaptionOf(control_.form, row, false);
    cell.text = Wide(own);
    cell.wanted = cell.least = look_.WidthOf(cell.text) + 4 * look_.Character();
    return cell;
  }
  if (SpansPage(kind)) {
    cell.text = Wide(control ? control_.form.TextOf(control) : presentation::CaptionOf(control_.form, row, false));
    cell.wanted = look_.WidthOf(cell.text);
    cell.least = std::min(cell.wanted, kLeastCharacters * look_.Character());
    return cell;
  }
  int characters = CharactersOf(kind, width, page_.numberWidth);
  int least = std::min(characters, kLeastCharacters);
  if (IsTight() && characters <= kMostTight) least = std::min(characters, kTightCharacters);
  const Look::Font font = row.large ? Look::Font::kLarge : Look::Font::kPlain;
  if (row.large) {
    characters = characters * kLargeShare / 16 * look_.Line(font) / look_.Line();
    least = std::min(least * 2, characters);
  }
  const int frame = look_.Pixels(8);
  const int arrow = kind == RowKind::kList || characters >= 28 ? look_.Line() * 3 / 2 : 0;
  cell.wanted = characters * look_.Character() + frame + arrow;
  cell.least = least * look_.Character() + frame + arrow;
  if (control && (kind == RowKind::kNum || kind == RowKind::kValue)) {  // no number is cut for want of room beside it
    const int text = look_.WidthOf(Wide(control_.form.TextOf(control)), font) + 2 * look_.Inset();
    cell.least = std::clamp(text, cell.least, std::max(cell.least, cell.wanted));
  }
  if (row.large && control) {  // what is read from afar is not cut
    const int text = look_.WidthOf(Wide(control_.form.TextOf(control)), font) + frame + 2 * look_.Character();
    cell.wanted = std::max(cell.wanted, text);
    cell.least = std::max(cell.least, text);
  }
  return cell;
}

void GroupPlan::AddField(Line& line, const LayoutRow& row, bool second) {
  const RowKind kind = second ? row.secondKind : row.kind;
  const ControlId control = second ? row.second : row.control;
  const bool slot = !IsButton(kind);
  const bool indented = IsButton(kind) && !buttonsOnly_ && line.cells.empty();  // stands below the fields
  if (slot || indented) {
    const int side = look_.Ascent(row.large ? Look::Font::kLarge : Look::Font::kPlain);
    Cell shape;
    shape.what = Cell::What::kShape;
    shape.row = &row;
    shape.control = slot ? control : ControlId{};
    shape.wanted = shape.least = side;
    line.cells.push_back(std::move(shape));
  }
  line.cells.push_back(FieldCell(row, kind, control, second ? row.secondWidth : row.width));
  line.changes = line.changes || CanBeChanged(kind);
}

void GroupPlan::AddUnit(Line& line, const LayoutRow& row) {
  const LayoutUnit& unit = row.unit;
  const bool has = unit.control || !unit.text.empty();
  if (!has && !(row.second && unitBeforeSecond_)) return;
  Form& form = control_.form;
  const bool hidden = unit.control && !unit.echo && !form.Any(unit.control).Visible();
  Cell cell;
  cell.what = Cell::What::kUnit;
  cell.row = &row;
  cell.control = row.control;
  if (!hidden) cell.text = Wide(unit.control ? form.TextOf(unit.control) : unit.text);
  const int own = look_.WidthOf(cell.text);
  const bool wide = unit.control || row.second;
  cell.wanted = std::max(own, wide ? kUnitCharacters * look_.Character() : 0);
  cell.least = std::max(own, wide ? kLeastUnitCharacters * look_.Character() : 0);
  cell.pale = row.kind == RowKind::kLabel;
  line.cells.push_back(std::move(cell));
}

// Behind the last field that can be changed, where others follow it; else at the end.
void GroupPlan::AddWords(Line& line) {
  std::vector<const ScreenRow*> rows;
  auto place = line.cells.end();
  for (auto at = line.cells.begin(); at != line.cells.end(); ++at) {
    if (at->what == Cell::What::kField && at->control) {
      if (const ScreenRow* row = presented_.Row(at->control)) rows.push_back(row);
    }
    const bool stateless = at->row->role == RowRole::kAccessCode;
    const bool ofChanged = CanBeChanged(at->row->kind) && !stateless;
    if (ofChanged && (at->what == Cell::What::kField || at->what == Cell::What::kUnit)) place = at + 1;
  }
  Cell words;
  words.what = Cell::What::kWords;
  words.row = line.rows.front();
  words.words = presentation::WordsOf(rows);
  if (!rows.empty()) words.control = rows.front()->control;
  words.wanted = look_.WidthOf(Wide(words.words.words));
  if (group_.columns == 1 && line.changes) {
    words.wanted = std::max(words.wanted, presentation::kWordsCharacters * look_.Character());
  }
  line.cells.insert(place, std::move(words));
}

// The captions of what joins a line stand in a column of their own.
void GroupPlan::AlignJoined() {
  struct Joined {
    Cell* caption;
    int first;
  };
  std::vector<Joined> joined;
  int widest = 0;
  int widestCaption = 0;
  for (Line& line : lines_) {
    if (!line.shows || line.rows.size() < 2) continue;
    int first = 0;
    for (Cell& cell : line.cells) {
      if (cell.what == Cell::What::kCaption && cell.row == line.rows[1] && cell.control == cell.row->control) {
        joined.push_back({&cell, first});
        widest = std::max(widest, first);
        widestCaption = std::max(widestCaption, cell.wanted);
        break;
      }
      if (cell.what != Cell::What::kWords) first += cell.wanted + CellGap();
    }
  }
  for (const Joined& one : joined) {
    one.caption->before = widest - one.first;
    one.caption->after = widestCaption - one.caption->wanted;
    one.caption->wanted += one.caption->before + one.caption->after;
  }
}

// Buttons that stand below one another are of one width.
void GroupPlan::AlignButtons() {
  std::vector<Cell*> buttons;
  int widest = 0;
  for (Line& line : lines_) {
    const auto field = [](const Cell& cell) { return cell.what == Cell::What::kField; };
    if (!line.shows || std::count_if(line.cells.begin(), line.cells.end(), field) != 1) continue;
    Cell& cell = *std::find_if(line.cells.begin(), line.cells.end(), field);
    if (!IsButton(cell.kind)) continue;
    buttons.push_back(&cell);
    widest = std::max(widest, cell.wanted);
  }
  for (Cell* button : buttons) button->wanted = button->least = widest;
}

// ---- widths and heights

int GroupPlan::Above() const {
  const int gap = boxed_ ? look_.Character() : look_.Character() / 2;
  return boxed_ ? look_.Line(Look::Font::kBold) + gap : gap;
}

int GroupPlan::LinesInColumn() const {
  const int columns = std::max(1, group_.columns);
  return std::max(1, (static_cast<int>(lines_.size()) + columns - 1) / columns);
}

int GroupPlan::CaptionWidth() const {
  int width = 0;
  for (const Line& line : lines_) {
    if (!line.above) width = std::max(width, look_.WidthOf(line.caption));
  }
  return width;
}

int GroupPlan::Captions(int column) const {
  int width = column == 0 ? captionWidth_ : 0;
  const auto from = static_cast<std::size_t>(column * LinesInColumn());
  const std::size_t to = std::min(lines_.size(), from + static_cast<std::size_t>(LinesInColumn()));
  for (std::size_t i = from; i < to; ++i) {
    if (!lines_[i].above) width = std::max(width, look_.WidthOf(lines_[i].caption));
  }
  return width;
}

int GroupPlan::WidthOfLine(const Line& line, bool least) const {
  int width = 0;
  for (const Cell& cell : line.cells) width += (least ? cell.least : cell.wanted) + (width > 0 ? CellGap() : 0);
  return std::max(width, line.above ? look_.WidthOf(line.caption) * (least ? 0 : 1) : 0);
}

std::vector<int> GroupPlan::ColumnWidths(int width) const {
  const int columns = std::max(1, group_.columns);
  std::vector<int> widths;
  int rest = width;
  for (int column = 0; column < columns; ++column) {
    rest -= Captions(column) + ColumnGap() + (column > 0 ? ColumnGap() : 0);
  }
  for (int column = 0; column < columns; ++column) widths.push_back(std::max(rest / columns, 0));
  return widths;
}

int GroupPlan::Width(bool least) const {
  const int columns = std::max(1, group_.columns);
  int widest = 0;
  int wide = 0;
  for (const Line& line : lines_) {
    if (!line.shows) continue;
    int& of = line.wide ? wide : widest;
    of = std::max(of, WidthOfLine(line, least));
  }
  int width = columns * widest + (columns - 1) * ColumnGap();
  for (int column = 0; column < columns; ++column) width += Captions(column) + ColumnGap();
  return std::max(width, wide);
}

int GroupPlan::Wanted() const {
  const int title = boxed_ ? look_.WidthOf(title_, Look::Font::kBold) + 2 * look_.Character() : 0;
  return std::max(Width(false), title) + 2 * Aside();
}

int GroupPlan::Least() const { return Width(true) + 2 * Aside(); }

bool GroupPlan::Fills() const {
  return std::any_of(lines_.begin(), lines_.end(), [](const Line& line) {
    return line.shows && std::any_of(line.cells.begin(), line.cells.end(), [](const Cell& cell) { return cell.page; });
  });
}

int GroupPlan::FieldHeight(const Cell& cell) const {
  const Look::Font font = cell.row->large ? Look::Font::kLarge : Look::Font::kPlain;
  if (cell.kind == RowKind::kListBox) return 3 * look_.Line() + look_.Pixels(6);
  if (cell.kind == RowKind::kFixed) return look_.Line();
  return look_.FieldHeight(font);
}

int GroupPlan::LineHeight(const Line& line, int width) const {
  int height = line.caption.empty() ? 0 : look_.Line();
  for (const Cell& cell : line.cells) {
    if (cell.what != Cell::What::kField) continue;
    height = std::max(height, cell.kind == RowKind::kMsg ? look_.HeightOf(cell.text, width) : FieldHeight(cell));
  }
  return height + (line.above ? CaptionAbove() : 0);
}

int GroupPlan::HeightAt(int width) const {
  const int inside = width - 2 * Aside();
  const std::vector<int> widths = ColumnWidths(inside);
  int highest = 0;
  int height = 0;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (i % static_cast<std::size_t>(LinesInColumn()) == 0) height = 0;
    if (!lines_[i].shows) continue;
    const auto column = i / static_cast<std::size_t>(LinesInColumn());
    height += LineHeight(lines_[i], lines_[i].wide ? inside : widths[column]) + (height > 0 ? LineGap() : 0);
    highest = std::max(highest, height);
  }
  return Above() + highest + Below();
}

// ---- placing

void GroupPlan::Place(const presentation::FlowRect& rect, PagePlan& plan) const {
  if (boxed_) {
    const LONG middle = look_.Line(Look::Font::kBold) / 2;
    plan.boxes.push_back({rect.x, rect.y + middle, rect.x + rect.width, rect.y + rect.height});
    const LONG left = rect.x + look_.Character();
    const int width = std::min(look_.WidthOf(title_, Look::Font::kBold), rect.width - 2 * look_.Character());
    if (!title_.empty()) {
      plan.texts.push_back({.rect = {left, rect.y, left + width, rect.y + look_.Line(Look::Font::kBold)},
                            .text = title_,
                            .style = PlannedText::Style::kTitle,
                            .field = {},
                            .mnemonic = mnemonic_});
    }
  }
  const int inside = rect.width - 2 * Aside();
  const std::vector<int> widths = ColumnWidths(inside);
  LONG left = rect.x + Aside();
  LONG top = rect.y + Above();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const auto column = static_cast<int>(i) / LinesInColumn();
    if (i > 0 && i % static_cast<std::size_t>(LinesInColumn()) == 0) {
      left += Captions(column - 1) + ColumnGap() + widths[static_cast<std::size_t>(column) - 1] + ColumnGap();
      top = rect.y + Above();
    }
    const Line& line = lines_[i];
    if (!line.shows) continue;
    const int captions = line.wide ? 0 : Captions(column) + ColumnGap();
    const int width = line.wide ? inside : widths[static_cast<std::size_t>(column)];
    const int height = LineHeight(line, width);
    PlaceLine(line, {left, top, left + captions + width, top + height}, captions, plan);
    top += height + LineGap();
  }
}

void GroupPlan::PlaceLine(const Line& line, RECT room, int captions, PagePlan& plan) const {
  const bool listBox = std::any_of(line.cells.begin(), line.cells.end(),
                                   [](const Cell& cell) { return cell.kind == RowKind::kListBox; });
  if (!line.caption.empty()) {
    RECT rect = room;
    if (line.above || listBox) rect.bottom = rect.top + look_.Line();
    if (!line.above) rect.right = rect.left + captions;
    plan.texts.push_back({.rect = rect, .text = line.caption, .field = line.captioned});
  }
  if (line.above) room.top += CaptionAbove();
  room.left += captions;
  int missing = WidthOfLine(line, false) - (room.right - room.left);
  int givable = 0;
  int aligning = 0;
  for (const Cell& cell : line.cells) {
    if (cell.what == Cell::What::kWords) {
      missing -= cell.wanted;  // words never take room from a field
    } else {
      aligning += cell.before + cell.after;
      givable += cell.wanted - cell.least - cell.before - cell.after;
    }
  }
  const int unaligned = std::clamp(missing, 0, aligning);
  missing -= unaligned;
  const auto given = [](int part, int of, int all) {
    return all == 0 ? 0 : static_cast<int>(static_cast<long long>(part) * of / all);
  };
  LONG x = room.left;
  const std::size_t first = plan.fields.size();
  bool wordsCut = false;
  for (const Cell& cell : line.cells) {
    int width = cell.wanted;
    if (cell.page) width = std::max<int>(room.right - x, cell.least);
    const int before = cell.before - given(cell.before, unaligned, aligning);
    const int after = cell.after - given(cell.after, unaligned, aligning);
    width -= cell.before + cell.after - before - after;
    if (missing > 0 && cell.what != Cell::What::kWords && !cell.page) {
      width -= given(cell.wanted - cell.least - cell.before - cell.after, std::min(missing, givable), givable);
    }
    if (cell.what == Cell::What::kWords) width = std::max<int>(0, std::min<int>(cell.wanted, room.right - x));
    if (cell.what == Cell::What::kWords) wordsCut = look_.WidthOf(Wide(cell.words.words)) > width;
    const bool caption = cell.what == Cell::What::kCaption;
    PlaceCell(cell, {x + (caption ? before : 0), room.top, x + width - (caption ? after : 0), room.bottom}, plan);
    x += width + (width > 0 || cell.what != Cell::What::kWords ? CellGap() : 0);
  }
  for (std::size_t i = first; i < plan.fields.size(); ++i) plan.fields[i].wordsCut = wordsCut;
}

void GroupPlan::PlaceCell(const Cell& cell, const RECT& rect, PagePlan& plan) const {
  const auto say = [&](std::wstring text, PlannedText::Style style) {
    plan.texts.push_back({.rect = rect, .text = std::move(text), .style = style, .field = cell.control});
  };
  switch (cell.what) {
    case Cell::What::kCaption:
      say(cell.text, PlannedText::Style::kPlain);
      break;
    case Cell::What::kUnit:
      say(cell.text, cell.pale ? PlannedText::Style::kPale : PlannedText::Style::kPlain);
      break;
    case Cell::What::kWords:
      if (cell.words.words.empty()) break;
      say(Wide(presentation::FittingIn(cell.words, rect.right - rect.left, look_.Character(),
                                       [this](std::string_view text) { return look_.WidthOf(Wide(text)); })),
          cell.words.alert ? PlannedText::Style::kAlert : PlannedText::Style::kWords);
      break;
    case Cell::What::kShape:
      if (const ScreenRow* row = cell.control ? presented_.Row(cell.control) : nullptr) {
        Shape shape = row->state ? ShapeOf(*row->state) : Shape::kNone;
        std::string_view name = row->state ? presentation::NameOf(*row->state) : std::string_view();
        if (shape == Shape::kNone && (shape = ShapeOf(row->mark)) != Shape::kNone) {
          name = presentation::NameOf(row->mark);
        }
        if (shape != Shape::kNone) plan.shapes.push_back({.rect = rect, .shape = shape, .name = name});
      }
      break;
    case Cell::What::kField:
      PlaceField(cell, rect, plan);
      break;
  }
}

void GroupPlan::PlaceField(const Cell& cell, const RECT& rect, PagePlan& plan) const {
  if (SpansPage(cell.kind)) {
    plan.texts.push_back(
        {.rect = rect, .text = cell.text, .style = PlannedText::Style::kMessage, .field = cell.control});
    return;
  }
  const int height = FieldHeight(cell);
  const LONG top = (rect.top + rect.bottom - height) / 2;
  PlannedField field;
  field.control = cell.control;
  field.kind = cell.kind;
  field.rect = {rect.left, top, rect.right, top + height};
  field.large = cell.row->large;
  field.enabled = control_.form.Any(cell.control).Enabled();
  field.role = cell.control == cell.row->control ? cell.row->role : RowRole::kNone;
  const std::string_view note = presentation::NoteOf(*cell.row, cell.control);
  field.note = Wide(note);
  if (IsButton(cell.kind)) {
    field.text = field.name = cell.text;
    field.description = field.note;
    for (const presentation::ScreenButton& button : presented_.Shown().buttons) {
      if (button.control == cell.control) field.mnemonic = button.mnemonic;
    }
  } else {
    const std::string_view text = control_.form.TextOf(cell.control);
    field.text = Wide(text);
    field.number =
        cell.kind == RowKind::kNum || cell.kind == RowKind::kValue ||
        (cell.kind == RowKind::kLabel && FindLocaleNumber(text, control_.codecs.DecimalSeparator()).has_value());
    if (const ScreenRow* row = presented_.Row(cell.control)) {
      if (cell.kind == RowKind::kListBox) field.text = Wide(row->text);
      field.pale = row->pale;
      field.name = Wide(row->name);
      field.description = Wide(presentation::DescriptionOf(*row, note));
    }
  }
  plan.fields.push_back(std::move(field));
}

}  // namespace htr60::view
