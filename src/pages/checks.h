#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "form/tab_captions.h"
#include "pages/contents.h"
#include "pages/finding.h"
#include "shell/page_unit.h"

// Compile-time checks over the tables of all units. Names are compared as sorted hashes: comparing all pairs of texts
// would exceed the number of steps that a compiler allows.
namespace htr60::checks {

template <std::size_t N>
constexpr Finding AnswersOnce(NamedUnits<N> units) {
  return Doubled<256>(units, &PageUnit::answers, "answers",
                      [](const AnswerRow& row) { return static_cast<std::uint64_t>(row.code); });
}

// One key a page and sub-page; a row for any sub-page is the only one of its page, for one beside it were never found.
template <class Row, std::size_t N>
constexpr Finding PairsOnce(NamedUnits<N> units, std::span<const Row> PageUnit::*table, const char* name) {
  Keys<512> pairs;
  Keys<128> whole;
  const auto each = [&](auto visit) {
    for (const NamedUnit& named : units) {
      int number = 0;
      for (const Row& row : named.unit->*table) {
        ++number;
        for (std::size_t p = 0; p < row.pages.Count(); ++p) {
          visit(row, Hash(row.pages[p]), Finding{named.name, name, number});
        }
      }
    }
  };
  each([&](const Row& row, std::uint64_t page, const Finding& at) {
    if (row.subPages.Any()) whole.Add(page, at);
    for (std::size_t s = 0; s < row.subPages.Set().Count(); ++s) pairs.Add(Hash(row.subPages.Set()[s], page), at);
  });
  if (const Finding twice = pairs.Doubled(); twice.unit != nullptr) return twice;
  if (const Finding twice = whole.Doubled(); twice.unit != nullptr) return twice;
  Finding beside;
  each([&](const Row& row, std::uint64_t page, const Finding& at) {
    if (!row.subPages.Any() && beside.unit == nullptr && whole.Has(page)) beside = at;
  });
  return beside;
}

template <std::size_t N>
constexpr Finding WritesOnce(NamedUnits<N> units) {
  return PairsOnce<WriteRow>(units, &PageUnit::writes, "writes");
}

template <std::size_t N>
constexpr Finding RereadsOnce(NamedUnits<N> units) {
  return PairsOnce<RereadRow>(units, &PageUnit::rereads, "rereads");
}

template <std::size_t N>
constexpr Finding BacksOnce(NamedUnits<N> units) {
  Keys<128> keys;
  for (const NamedUnit& named : units) {
    int number = 0;
    for (const BackRow& row : named.unit->backs) {
      ++number;
      for (std::size_t p = 0; p < row.pages.Count(); ++p) {
        keys.Add(Hash(row.pages[p]), {named.name, "backs", number});
      }
    }
  }
  return keys.Doubled();
}

template <std::size_t N>
constexpr Finding ButtonsOnce(NamedUnits<N> units) {
  return Doubled<128>(units, &PageUnit::buttons, "buttons",
                      [](const ButtonRow& row) -> std::uint64_t { return row.button.ordinal; });
}

template <std::size_t N>
constexpr Finding TabsOnce(NamedUnits<N> units) {
  return Doubled<64>(units, &PageUnit::tabs, "tabs",
                     [](const TabRow& row) -> std::uint64_t { return row.strip.ordinal; });
}

template <std::size_t N>
constexpr Finding ListsOnce(NamedUnits<N> units) {
  return Doubled<128>(units, &PageUnit::lists, "lists",
                      [](const ListRow& row) -> std::uint64_t { return row.list.ordinal; });
}

template <std::size_t N>
constexpr Finding PollsOnce(NamedUnits<N> units) {
  return Doubled<kTimerCount>(units, &PageUnit::polls, "polls",
                              [](const PollRow& row) { return static_cast<std::uint64_t>(row.timer); });
}

template <std::size_t N>
constexpr Finding OperationsOnce(NamedUnits<N> units) {
  return Doubled<16>(units, &PageUnit::operations, "operations",
                     [](const OperationRow& row) { return Hash(row.name); });
}

// Members of the control have no order, so the rows of each list are compared with each other.
template <std::size_t N>
constexpr Finding FillsOnce(NamedUnits<N> units) {
  std::array<const FillRow*, 256> rows{};
  std::size_t count = 0;
  return FirstWrong<FillRow>(units, &PageUnit::fills, "fills", [&](const FillRow& row) {
    for (std::size_t i = 0; i < count; ++i) {
      if (rows[i]->list == row.list && rows[i]->moment == row.moment) return false;
    }
    rows[count++] = &row;
    return true;
  });
}

template <std::size_t N>
constexpr Finding StepsFit(NamedUnits<N> units) {
  return FirstWrong<TabRow>(units, &PageUnit::tabs, "tabs", [](const TabRow& row) {
    return row.steps.empty() ? static_cast<bool>(row.run) : row.steps.size() == TabCountOf(row.strip);
  });
}

template <std::size_t N>
constexpr Finding FramesOnce(NamedUnits<N> units) {
  return Doubled<64>(units, &PageUnit::layouts, "layouts",
                     [](const PageLayout& layout) -> std::uint64_t { return layout.frame.ordinal; });
}

template <std::size_t N>
constexpr Finding FramesDeclared(NamedUnits<N> units) {
  std::array<bool, CountOf(ControlKind::kFrame)> pages{};
  for (const NamedUnit& named : units) {
    for (const PageLayout& layout : named.unit->layouts) pages[SlotOf(layout.frame)] = true;
  }
  const auto declared = [&](FrameId frame) { return !frame || pages[SlotOf(frame)]; };
  for (const NamedUnit& named : units) {
    if (!declared(named.unit->start.frame)) return {named.name, "start", 1};
  }
  const Finding back =
      FirstWrong<BackRow>(units, &PageUnit::backs, "backs", [&](const BackRow& row) { return declared(row.to.frame); });
  if (back.unit != nullptr) return back;
  return FirstWrong<NodeRow>(units, &PageUnit::nodes, "nodes", [&](const NodeRow& row) { return declared(row.frame); });
}

// Counts the places of every control: rows, captions, units, groups, strips, and fields declared as working fields.
class Places {
 public:
  /// False where one of the controls has its place already.
  constexpr bool Put(ControlId control) { return !control || ++counts_[control.ordinal] == 1; }
  constexpr bool Put(const LayoutRow& row) {
    bool first = Put(row.control);
    if (row.captionControl && !(row.captionControl == row.control)) first = Put(row.captionControl) && first;
    if (!row.unit.echo) first = Put(row.unit.control) && first;
    return Put(row.second) && first;
  }
  /// The frame of a group that goes on in several parts is placed by its first.
  constexpr bool PutFrame(const LayoutGroup& group) {
    if (group.frame && !group.rows.empty() && placedFrames_[group.frame.ordinal]) return true;
    if (group.frame) placedFrames_[group.frame.ordinal] = true;
    return Put(group.frame);
  }

 private:
  std::array<int, kControlCount> counts_{};
  std::array<bool, kControlCount> placedFrames_{};
};

template <std::size_t N>
constexpr Finding PlacedOnce(NamedUnits<N> units) {
  Places places;
  for (const NamedUnit& named : units) {
    int number = 0;  // of the row among those of all the unit's layouts
    for (const PageLayout& layout : named.unit->layouts) {
      bool first = places.Put(ControlId{layout.frame});
      first = places.Put(ControlId{layout.strip}) && first;
      for (const LayoutInnerStrip& inner : layout.innerStrips) first = places.Put(ControlId{inner.strip}) && first;
      if (!first) return {named.name, "layouts", number + 1};
      for (const LayoutGroup& group : layout.groups) {
        if (!places.PutFrame(group) || !places.Put(ControlId{group.panel})) return {named.name, "layouts", number + 1};
        for (const LayoutRow& row : group.rows) {
          ++number;
          if (!places.Put(row)) return {named.name, "layouts", number};
        }
      }
    }
  }
  return FirstWrong<ControlId>(units, &PageUnit::workingFields, "workingFields",
                               [&](ControlId control) { return places.Put(control); });
}

// ---- nodes

/// Calls `look(row, text)` for every text of every node until one is wrong.
template <std::size_t N, class Look>
constexpr Finding FirstWrongText(NamedUnits<N> units, Look look) {
  return FirstWrong<NodeRow>(units, &PageUnit::nodes, "nodes", [&](const NodeRow& row) {
    for (const NodeText& text : row.texts) {
      if (!look(row, text)) return false;
    }
    return true;
  });
}

// A text of several rows needs a condition in each; in one row it may stand once a tree.
template <std::size_t N>
constexpr Finding NodesOnce(NamedUnits<N> units) {
  return FirstWrongText(units, [&](const NodeRow& row, const NodeText& text) {
    const Finding other = FirstWrongText(units, [&](const NodeRow& otherRow, const NodeText& otherText) {
      if (&otherText == &text || otherText.text != text.text) return true;
      const bool conditions = row.when != nullptr && otherRow.when != nullptr;
      return (&otherRow == &row || conditions) && !otherText.trees.Meets(text.trees);
    });
    return other.unit == nullptr;
  });
}

template <std::size_t N>
constexpr Finding NodesInContents(NamedUnits<N> units) {
  return FirstWrongText(units, [](const NodeRow&, const NodeText& text) {
    if (text.byTextAlone) return !text.trees.Any();
    return text.trees.Any() && std::find(std::begin(kContents), std::end(kContents), text.text) != std::end(kContents);
  });
}

template <std::size_t N>
constexpr Finding ParentsFirst(NamedUnits<N> units) {
  return FirstWrongText(units, [&](const NodeRow&, const NodeText& text) {
    if (text.parent.empty() || !text.trees.Any()) return true;
    for (std::size_t shape = 0; shape < kTreeShapes; ++shape) {
      if (!text.trees.Has(static_cast<TreeShape>(shape))) continue;
      if (FindNode(units, text.parent, static_cast<TreeShape>(shape)) == nullptr) return false;
    }
    const auto* parent = std::find(std::begin(kContents), std::end(kContents), text.parent);
    return parent < std::find(std::begin(kContents), std::end(kContents), text.text);
  });
}

/// Every text of the table of contents stands there once, and some unit has it in a tree.
template <std::size_t N>
constexpr bool ContentsAreNodes(NamedUnits<N> units) {
  for (std::size_t i = 0; i < kContentsSize; ++i) {
    if (std::find(std::begin(kContents), std::begin(kContents) + i, kContents[i]) != std::begin(kContents) + i) {
      return false;
    }
    bool found = false;
    for (std::size_t shape = 0; shape < kTreeShapes; ++shape) {
      found = found || FindNode(units, kContents[i], static_cast<TreeShape>(shape)) != nullptr;
    }
    if (!found) return false;
  }
  return true;
}

template <std::size_t N>
constexpr Finding StartOnce(NamedUnits<N> units) {
  int starts = 0;
  for (const NamedUnit& named : units) {
    if (named.unit->start.frame && ++starts > 1) return {named.name, "start", 1};
  }
  return starts == 1 ? Finding{} : Finding{units[0].name, "start", 1};
}

}  // namespace htr60::checks

// A wrong table does not compile: the message names the unit, the table and the row, counted from 1.
#define HTR60_CHECK_TABLE(check, units, why)                                       \
  static_assert(htr60::checks::Right<htr60::checks::check(units)>::kChecked, why); \
  static_assert(htr60::checks::Tell(htr60::checks::check(units)), why)

// clang-format off
#define HTR60_CHECK_TABLES(units)                                                                                    \
  HTR60_CHECK_TABLE(AnswersOnce, units, "an answer code stands twice");                                              \
  HTR60_CHECK_TABLE(WritesOnce, units, "a page and sub-page of a write stand twice, or beside a row for any");       \
  HTR60_CHECK_TABLE(RereadsOnce, units, "a page and sub-page of a re-read stand twice, or beside a row for any");    \
  HTR60_CHECK_TABLE(BacksOnce, units, "a way back stands twice");                                                    \
  HTR60_CHECK_TABLE(ButtonsOnce, units, "a button has two handlers");                                                \
  HTR60_CHECK_TABLE(TabsOnce, units, "a tab strip has two handlers");                                                \
  HTR60_CHECK_TABLE(ListsOnce, units, "a list has two handlers");                                                    \
  HTR60_CHECK_TABLE(PollsOnce, units, "a timer reads twice");                                                        \
  HTR60_CHECK_TABLE(OperationsOnce, units, "an operation stands twice");                                             \
  HTR60_CHECK_TABLE(FillsOnce, units, "a list is filled twice at one moment");                                       \
  HTR60_CHECK_TABLE(StepsFit, units, "a step table is not as long as its strip, or a strip has nothing to run");     \
  HTR60_CHECK_TABLE(FramesOnce, units, "a page frame is declared twice");                                            \
  HTR60_CHECK_TABLE(FramesDeclared, units, "a frame is shown that no unit declares as its page");                    \
  HTR60_CHECK_TABLE(PlacedOnce, units, "a control has two places");                                                  \
  HTR60_CHECK_TABLE(NodesOnce, units, "a node's text stands twice without a condition, or twice in one tree");       \
  HTR60_CHECK_TABLE(NodesInContents, units, "a node's text is in no tree and not by text alone, or in no contents"); \
  HTR60_CHECK_TABLE(ParentsFirst, units, "a node's parent does not stand before it in the same tree");               \
  HTR60_CHECK_TABLE(StartOnce, units, "not one unit has the page of the start")
// clang-format on
