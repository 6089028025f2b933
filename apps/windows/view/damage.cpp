#include "windows/view/damage.h"

#include <algorithm>

namespace htr60::view {
namespace {

bool SamePlace(const RECT& a, const RECT& b) { return EqualRect(&a, &b) != FALSE; }

bool LooksAlike(const RECT& a, const RECT& b) { return SamePlace(a, b); }
bool LooksAlike(const PlannedField& a, const PlannedField& b) {
  return SamePlace(a.rect, b.rect) && a.control == b.control && a.kind == b.kind && a.enabled == b.enabled;
}
bool LooksAlike(const PlannedText& a, const PlannedText& b) {
  return SamePlace(a.rect, b.rect) && a.text == b.text && a.style == b.style && a.mnemonic == b.mnemonic;
}
bool LooksAlike(const PlannedShape& a, const PlannedShape& b) {
  return SamePlace(a.rect, b.rect) && a.shape == b.shape;
}
bool LooksAlike(const presentation::FlowArrow& a, const presentation::FlowArrow& b) {
  const auto same = [](const presentation::FlowPoint& one, const presentation::FlowPoint& other) {
    return one.x == other.x && one.y == other.y;
  };
  return same(a.left, b.left) && same(a.right, b.right) && same(a.tip, b.tip);
}

const RECT& PlaceOf(const RECT& box) { return box; }
RECT PlaceOf(const presentation::FlowArrow& arrow) {
  const auto [left, right] = std::minmax({arrow.left.x, arrow.right.x, arrow.tip.x});
  const auto [top, bottom] = std::minmax({arrow.left.y, arrow.right.y, arrow.tip.y});
  return {left, top, right + 1, bottom + 1};
}
template <class Piece>
const RECT& PlaceOf(const Piece& piece) {
  return piece.rect;
}

/// Pieces that differ by their number in the list, and those that only one list has. What lies before a piece that
/// came or went stays.
template <class Piece>
void Compare(const std::vector<Piece>& before, const std::vector<Piece>& after, int margin, std::vector<RECT>& damage) {
  const auto add = [&](const Piece& piece) {
    damage.push_back(PlaceOf(piece));
    InflateRect(&damage.back(), margin, margin);  // titles have a ground, lines a width
  };
  for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
    if (i < before.size() && i < after.size() && LooksAlike(before[i], after[i])) continue;
    if (i < before.size()) add(before[i]);
    if (i < after.size()) add(after[i]);
  }
}

}  // namespace

std::vector<RECT> DamageOf(const PagePlan& before, const PagePlan& after, const Look& look) {
  const int margin = look.Character();
  std::vector<RECT> damage;
  Compare(before.boxes, after.boxes, margin, damage);
  Compare(before.fields, after.fields, margin, damage);
  Compare(before.texts, after.texts, margin, damage);
  Compare(before.shapes, after.shapes, margin, damage);
  Compare(before.arrows, after.arrows, margin, damage);
  return damage;
}

}  // namespace htr60::view
