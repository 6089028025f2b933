#pragma once

#include <QLayout>
#include <vector>

namespace htr60::desktop {

/// Groups in lines of columns. A group stands below the one before it in its column; `beside` begins a new column,
/// `newLine` a new line below all columns. Columns that do not fit beside each other stand below each other.
class GroupFlow final : public QLayout {
  Q_OBJECT

 public:
  explicit GroupFlow(QWidget* parent);
  ~GroupFlow() override;

  /// `roomy`: stands beside the others only where none of them has to give way.
  void Add(QWidget* group, bool beside, bool newLine, bool roomy = false);
  /// The last group takes the height that is left.
  void StretchLast() { stretchLast_ = true; }
  /// Sets the order of the groups, as numbers of their adding.
  void Reorder(const std::vector<int>& order);
  /// Groups of the first column of the first line as they stand: for what joins them.
  std::vector<QWidget*> FirstColumn() const;

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
    bool beside;
    bool newLine;
    bool roomy;
    int number;
  };
  struct Column {
    std::vector<QLayoutItem*> items;
    bool roomy = false;
  };
  using Line = std::vector<Column>;

  std::vector<Line> Lines() const;
  int Place(const QRect& room, bool apply) const;
  static int WidthOf(const Column& column, bool least);
  std::size_t Fitting(const Line& line, std::size_t first, int room) const;
  int PlaceLine(const Line& line, const QRect& room, bool apply) const;

  std::vector<Item> items_;
  bool stretchLast_ = false;
};

}  // namespace htr60::desktop
