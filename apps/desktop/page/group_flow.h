#pragma once

#include <QLayout>
#include <QRect>
#include <functional>
#include <vector>

#include "desktop/core.h"

namespace htr60::desktop {

/// Measures groups for the presentation's flow and puts them where it says.
class GroupFlow final : public QLayout {
  Q_OBJECT

 public:
  struct Traits {
    bool beside = false;
    bool separate = false;
    bool roomy = false;
    bool stretches = false;  ///< takes the height that is left, as the last, and all the width
    std::function<bool()> fills{};
  };

  GroupFlow(bool arrows, QWidget* parent);
  ~GroupFlow() override;

  void Add(QWidget* group, Traits traits);
  /// Sets the order of the groups, as numbers of their adding.
  void Reorder(const std::vector<int>& order);
  /// The arrows between the groups as they stand.
  const std::vector<presentation::FlowArrow>& Arrows() const { return arrows_; }

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  Qt::Orientations expandingDirections() const override { return Qt::Vertical | Qt::Horizontal; }
  void setGeometry(const QRect& room) override;

 private:
  struct Item {
    QLayoutItem* item;
    Traits traits;
    int number;
  };
  std::vector<QLayoutItem*> Shown() const;
  std::vector<presentation::FlowItem> Measured() const;
  presentation::FlowRoom Room(QSize size) const;

  std::vector<Item> items_;
  bool withArrows_;
  std::vector<presentation::FlowArrow> arrows_;
};

}  // namespace htr60::desktop
