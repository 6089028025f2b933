#pragma once

#include <QScrollArea>
#include <QWidget>
#include <vector>

#include "desktop/figure/figure_widget.h"
#include "desktop/page/group_flow.h"
#include "desktop/page/group_view.h"

namespace htr60::desktop {

/// One page as its layout declares it: strips, and below them the groups of the tab in front, scrolled where needed.
class PageView final : public QWidget {
  Q_OBJECT

 public:
  PageView(PageContext context, const PageLayout& page, QWidget* parent);

  const PageLayout& Page() const { return page_; }
  /// Takes what is in `changed` from the form.
  void Refresh(const ControlSet& changed);
  /// Takes shapes, words, letters and figure from what the presentation shows.
  void RefreshStates();

  FieldCell* CellOf(ControlId control) const;
  const std::vector<GroupView*>& Groups() const { return groups_; }
  FigureWidget* Picture() const { return figure_; }  ///< none where the page draws nothing

 Q_SIGNALS:
  void Pressed(htr60::ButtonId button);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Strip {
    TabsId id;
    int tab;  // of the outer strip on which it stands, -1: the outer
    PageTabs* bar;
  };

  void AddStrip(TabsId id, int tab, QLayout& column);
  void OnTab(const Strip& strip, int index);
  void SyncStrips();
  void Arrange();
  void ArrangeByTop();
  void AlignCaptions();
  void ChooseLetters();
  void AddFigure();
  void RefreshFigure();
  std::vector<GroupView*> InOrder() const;

  PageContext context_;
  const PageLayout& page_;
  std::vector<Strip> strips_;
  QScrollArea* scroll_ = nullptr;
  QWidget* content_ = nullptr;
  GroupFlow* flow_ = nullptr;
  std::vector<GroupView*> groups_;
  FigureWidget* figure_ = nullptr;
  std::vector<int> order_;
  bool syncing_ = false;
};

}  // namespace htr60::desktop
